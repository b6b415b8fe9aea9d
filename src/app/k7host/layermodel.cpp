// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "layermodel.h"

#include "inputmodel.h"

namespace K7Host {

namespace {

QString layerText(const Composition &preview, int layer)
{
    const auto source = preview.sourceOn(layer);
    const QString content = source ? InputModel::sourceName(*source) : QStringLiteral("L%1").arg(layer + 1);
    return QStringLiteral("%1 z%2").arg(content).arg(preview.heightOf(layer));
}

} // namespace

LayerModel::LayerModel()
    : m_keys({FirstKey,
              PageUpKey,
              PageDownKey,
              {29, 28, 27, 26, 25, 24, 31, 30, 32, 35, 34, 33, 81, 83, 73, 72},
              PageLabel},
             Composition::LayerCount)
    , m_selected(1)
{
}

void LayerModel::press(quint32 key, Composition *preview)
{
    switch (key) {
    case ClearKey:
        preview->clear(m_selected);
        break;
    case ClearAllKey:
        preview->clear(Composition::LayerSet().set());
        break;
    case TopKey:
        preview->moveToTop(m_selected);
        break;
    case BottomKey:
        preview->moveToBottom(m_selected);
        break;
    case SelectAllKey:
        m_selected.set();
        break;
    case SelectNoneKey:
        m_selected.reset();
        break;
    default:
        if (const auto layer = m_keys.press(key))
            m_selected.flip(static_cast<std::size_t>(*layer));
    }
}

KeyColors LayerModel::keyColors() const
{
    KeyColors colors = m_keys.colors([this](int layer) {
        return m_selected.test(static_cast<std::size_t>(layer)) ? KeyColor::Yellow : KeyColor::Idle;
    });
    for (const quint32 key : {ClearKey, ClearAllKey, TopKey, BottomKey, SelectAllKey, SelectNoneKey})
        colors.insert(key, KeyColor::Idle);
    return colors;
}

LabelTexts LayerModel::labelTexts(const Composition &preview) const
{
    LabelTexts texts = m_keys.texts([&preview](int layer) { return layerText(preview, layer); });
    texts.insert(SelectAllLabel, QStringLiteral("ALL"));
    texts.insert(SelectNoneLabel, QStringLiteral("NONE"));
    return texts;
}

} // namespace K7Host
