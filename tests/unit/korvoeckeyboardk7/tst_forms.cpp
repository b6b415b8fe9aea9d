// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "support.h"

#include <QFile>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

const QLatin1String Absent("-");

/// A value as a form stores it. The kind is "text" for a text that is translated, "plain" for one that is
/// not, else the name of its element.
struct FormValue
{
    QString kind;
    QString text;
};

/// A widget of a form, or a group of buttons.
struct FormObject
{
    QString className;
    QString name;
    QString holder; // the widget around it
    QString group;  // of a button
    QHash<QString, FormValue> properties;

    QString text(const QString &property, const QString &otherwise = QString()) const
    {
        return properties.value(property, {QString(), otherwise}).text;
    }
};

/// Reads a Designer form: its widgets in the order in which it creates them.
class Form
{
public:
    explicit Form(const QString &path)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::ReadOnly))
            return;
        m_xml.setDevice(&m_file);
        if (m_xml.readNextStartElement())
            read(QString(), nullptr);
    }

    bool isRead() const { return m_file.isOpen() && !m_xml.hasError() && !widgets.isEmpty(); }
    const FormObject *widget(const QString &name) const
    {
        const auto match = std::find_if(widgets.cbegin(), widgets.cend(),
                                        [&name](const FormObject &one) { return one.name == name; });
        return match != widgets.cend() ? &*match : nullptr;
    }

    QString className;
    QVector<FormObject> widgets;
    QVector<FormObject> groups;

private:
    void read(const QString &holder, FormObject *owner);
    void readObject(QVector<FormObject> *objects, const QString &holder);
    FormValue readValue();
    QString attribute(const char *name) const
    {
        return m_xml.attributes().value(QLatin1String(name)).toString();
    }

    QFile m_file;
    QXmlStreamReader m_xml;
};

/// Reads what is within the current element. \a holder is the widget around it, \a owner the one that the
/// element is, or null where it only structures the form: a layout, an item, the form itself.
void Form::read(const QString &holder, FormObject *owner)
{
    static const QSet<QString> structure{QStringLiteral("layout"), QStringLiteral("item"),
                                         QStringLiteral("buttongroups")};
    while (m_xml.readNextStartElement()) {
        const QString element = m_xml.name().toString();
        const QString name = attribute("name");
        if (element == QLatin1String("widget"))
            readObject(&widgets, holder);
        else if (element == QLatin1String("buttongroup"))
            readObject(&groups, holder);
        else if (structure.contains(element))
            read(holder, nullptr);
        else if (element == QLatin1String("class"))
            className = m_xml.readElementText();
        else if (owner && element == QLatin1String("property"))
            owner->properties.insert(name, readValue());
        else if (owner && name == QLatin1String("buttonGroup"))
            owner->group = readValue().text;
        else
            m_xml.skipCurrentElement();
    }
}

void Form::readObject(QVector<FormObject> *objects, const QString &holder)
{
    FormObject object;
    object.className = attribute("class");
    object.name = attribute("name");
    object.holder = holder;
    const int index = objects->size();
    objects->append(object); // before the widgets within it
    read(object.name, &object);
    (*objects)[index] = object;
}

FormValue Form::readValue()
{
    FormValue value;
    while (m_xml.readNextStartElement()) {
        value.kind = m_xml.name().toString();
        if (value.kind == QLatin1String("size")) {
            QStringList numbers;
            while (m_xml.readNextStartElement())
                numbers << m_xml.readElementText();
            value.text = numbers.join(QLatin1Char('x'));
            continue;
        }
        if (value.kind == QLatin1String("string"))
            value.kind =
                attribute("notr") == QLatin1String("true") ? QStringLiteral("plain") : QStringLiteral("text");
        value.text = m_xml.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return value;
}

/// What Qt takes for a property that a form does not set, and the two halves of a size.
QString valueOf(const FormObject &object, const QString &property)
{
    const auto part = [&object](const char *size, const char *otherwise, int half) {
        const QString text = object.text(QLatin1String(size), QLatin1String(otherwise));
        return text.section(QLatin1Char('x'), half, half);
    };
    if (property == QLatin1String("minimumWidth"))
        return part("minimumSize", "0x0", 0);
    if (property == QLatin1String("minimumHeight"))
        return part("minimumSize", "0x0", 1);
    if (property == QLatin1String("maximumWidth"))
        return part("maximumSize", "16777215x16777215", 0);
    if (property == QLatin1String("maximumHeight"))
        return part("maximumSize", "16777215x16777215", 1);
    if (property == QLatin1String("checkable"))
        return object.text(property, QStringLiteral("false"));
    return object.text(property);
}

/// Of the names in forms.tsv: `name`, `"TEXT"` or `[marker=value]`.
bool isMeant(const FormObject &object, const QString &selector)
{
    const QString inner = selector.mid(1, selector.size() - 2);
    if (selector.startsWith(QLatin1Char('"')))
        return object.className == QLatin1String("QLabel") && object.text(QStringLiteral("text")) == inner;
    if (selector.startsWith(QLatin1Char('[')))
        return object.text(inner.section(QLatin1Char('='), 0, 0)) == inner.section(QLatin1Char('='), 1);
    return object.name == selector;
}

bool isKeyOrLabel(const QString &className)
{
    static const QSet<QString> classes{QStringLiteral("Korvo::EC::K7DropButton"),
                                       QStringLiteral("Korvo::EC::TextTicker"),
                                       QStringLiteral("QToolButton")};
    return classes.contains(className);
}

QString column(const Fact &fact, const char *name)
{
    return fact.value(QLatin1String(name));
}

/// The keys of a group, in the order in which they join it.
QStringList membersByFacts(const QVector<Fact> &facts, const QString &group)
{
    QStringList names;
    for (const Fact &fact : facts) {
        if (column(fact, "group") == group)
            names << column(fact, "object");
    }
    return names;
}

QStringList membersByForm(const Form &form, const QString &group)
{
    QStringList names;
    for (const FormObject &object : form.widgets) {
        if (object.group == group)
            names << object.name;
    }
    return names;
}

} // namespace

/// Compares the forms of the key sections, as they are written, with the facts of the console.
class tst_Forms : public QObject
{
    Q_OBJECT

private slots:
    void aFormHasTheNameOfItsSection_data() { addSections(); }
    void aFormHasTheNameOfItsSection();
    void aFormHoldsTheKeysAndLabelsOfItsSectionAndNoOther_data() { addSections(); }
    void aFormHoldsTheKeysAndLabelsOfItsSectionAndNoOther();
    void keysAndLabelsAreTheConsoles_data();
    void keysAndLabelsAreTheConsoles();
    void keysJoinTheirGroupInOrder_data();
    void keysJoinTheirGroupInOrder();
    void titlesHoldersAndSizesAreTheConsoles_data();
    void titlesHoldersAndSizesAreTheConsoles();

private:
    struct Section
    {
        const char *form;
        const char *className;
        const char *group;
        int expectedFacts;
    };
    static const QVector<Section> &sections();
    static void addSections();
    static Form form(const QString &name) { return Form(QStringLiteral(K7_FORMS "/%1.ui").arg(name)); }
};

const QVector<tst_Forms::Section> &tst_Forms::sections()
{
    static const QVector<Section> all{
        {"screenkeyboardframe", "ScreenKeyboardFrame", "screenButtonGroup", 23 + 17},
        {"layerkeyboardframe", "LayerKeyboardFrame", "layerButtonGroup", 25 + 19},
        {"inputkeyboardframe", "InputKeyboardFrame", "inputButtonGroup", 19 + 17},
        {"presetkeyboardframe", "PresetKeyboardFrame", "presetButtonGroup", 44 + 36},
        {"numberkeyboardframe", "NumberKeyboardFrame", "numberButtonGroup", 14},
        {"functionkeyboardframe", "FunctionKeyboardFrame", "functionButtonGroup", 12 + 3},
        {"transitionkeyboardframe", "TransitionKeyboardFrame", "transitionButtonGroup", 6 + 6},
    };
    return all;
}

void tst_Forms::addSections()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedClass");
    QTest::addColumn<int>("expectedFacts");
    for (const Section &section : sections()) {
        QTest::newRow(section.form) << QString::fromLatin1(section.form)
                                    << QString::fromLatin1(section.className) << section.expectedFacts;
    }
}

void tst_Forms::aFormHasTheNameOfItsSection()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedClass);
    const Form read = form(name);
    QVERIFY(read.isRead());
    QCOMPARE(read.className, expectedClass); // the context of its texts, too
    QCOMPARE(read.widgets.constFirst().name, expectedClass);
    QCOMPARE(read.widgets.constFirst().className, QStringLiteral("QFrame"));
}

void tst_Forms::aFormHoldsTheKeysAndLabelsOfItsSectionAndNoOther()
{
    QFETCH(QString, name);
    QFETCH(int, expectedFacts);
    const Form read = form(name);
    QVERIFY(read.isRead());

    QStringList expected;
    const QVector<Fact> facts = readFacts(name);
    for (const Fact &fact : facts)
        expected << column(fact, "object");
    QStringList held;
    for (const FormObject &object : read.widgets) {
        if (isKeyOrLabel(object.className))
            held << object.name;
    }
    expected.sort();
    held.sort();
    QCOMPARE(facts.size(), expectedFacts);
    QCOMPARE(held, expected);
}

void tst_Forms::keysAndLabelsAreTheConsoles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Fact>("fact");
    for (const Section &section : sections()) {
        const QString name = QString::fromLatin1(section.form);
        const QVector<Fact> facts = readFacts(name);
        for (const Fact &fact : facts) {
            const QString row = name + QLatin1Char('/') + column(fact, "object");
            QTest::newRow(qPrintable(row)) << name << fact;
        }
    }
}

void tst_Forms::keysAndLabelsAreTheConsoles()
{
    QFETCH(QString, name);
    QFETCH(Fact, fact);
    const Form read = form(name);
    QVERIFY(read.isRead());
    const FormObject *object = read.widget(column(fact, "object"));
    QVERIFY(object);
    QCOMPARE(object->className, column(fact, "class"));
    QCOMPARE(object->holder, column(fact, "holder"));
    QCOMPARE(object->group.isEmpty() ? QString(Absent) : object->group, column(fact, "group"));
    QCOMPARE(object->text(QStringLiteral("text")), column(fact, "text"));

    // How a value is stored says whether it is translated. An empty one looks the same either way.
    const auto compare = [object](const char *property, const QString &expected, const QString &kind) {
        if (expected == Absent) {
            QVERIFY2(!object->properties.contains(QLatin1String(property)), property);
            return;
        }
        QVERIFY2(object->properties.contains(QLatin1String(property)), property);
        const FormValue value = object->properties.value(QLatin1String(property));
        QCOMPARE(value.text, expected);
        if (expected.isEmpty())
            QVERIFY2(value.kind == QLatin1String("text") || value.kind == QLatin1String("plain"), property);
        else
            QCOMPARE(value.kind, kind);
    };
    const bool isEnter = column(fact, "key") == QLatin1String("NUMBER_ENTER");
    compare("key", column(fact, "key"), isEnter ? QStringLiteral("text") : QStringLiteral("plain"));
    compare("entry", column(fact, "entry"), QStringLiteral("text"));
    compare("KorvoECKey", column(fact, "id"), column(fact, "idKind"));

    if (column(fact, "width") != Absent) {
        const QString size = column(fact, "width") + QLatin1Char('x') + column(fact, "height");
        QCOMPARE(object->text(QStringLiteral("minimumSize")), size);
        QCOMPARE(object->text(QStringLiteral("maximumSize")), size);
    }
}

void tst_Forms::keysJoinTheirGroupInOrder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedGroup");
    for (const Section &section : sections())
        QTest::newRow(section.form) << QString::fromLatin1(section.form)
                                    << QString::fromLatin1(section.group);
}

void tst_Forms::keysJoinTheirGroupInOrder()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedGroup);
    const Form read = form(name);
    QVERIFY(read.isRead());
    QCOMPARE(read.groups.size(), 1);
    QCOMPARE(read.groups.constFirst().name, expectedGroup);
    QCOMPARE(read.groups.constFirst().text(QStringLiteral("exclusive")), QStringLiteral("false"));

    const QStringList expected = membersByFacts(readFacts(name), expectedGroup);
    QVERIFY(!expected.isEmpty());
    QCOMPARE(membersByForm(read, expectedGroup), expected);
}

void tst_Forms::titlesHoldersAndSizesAreTheConsoles_data()
{
    QTest::addColumn<Fact>("fact");
    const QVector<Fact> facts = readFacts(QStringLiteral("forms"));
    QVERIFY(facts.size() > 80);
    for (const Fact &fact : facts) {
        const QString row = column(fact, "form") + QLatin1Char('/') + column(fact, "widget") +
                            QLatin1Char('/') + column(fact, "property");
        QTest::newRow(qPrintable(row)) << fact;
    }
}

void tst_Forms::titlesHoldersAndSizesAreTheConsoles()
{
    QFETCH(Fact, fact);
    const Form read = form(column(fact, "form"));
    QVERIFY(read.isRead());
    const QString property = column(fact, "property");
    QStringList found;
    for (const FormObject &object : read.widgets) {
        if (!isMeant(object, column(fact, "widget")))
            continue;
        const QString kind = object.properties.value(property).kind;
        found << (column(fact, "kind") == Absent ? QString(Absent) : kind) + QLatin1Char(' ') +
                     valueOf(object, property);
    }
    const QString expected = column(fact, "kind") + QLatin1Char(' ') + column(fact, "value");
    if (!found.contains(expected))
        QCOMPARE(found, QStringList{expected});
}

QTEST_MAIN(tst_Forms)

#include "tst_forms.moc"
