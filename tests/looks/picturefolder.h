// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <optional>

/// The stored pictures of one folder, each <name>.png.
///
/// A picture that has changed is written beside its golden one, as <name>.new.png with
/// <name>.difference.png; both go again once it is right. Where the folder cannot be written to, they are
/// written elsewhere.
class PictureFolder
{
public:
    /// \a elsewhere is made when it is needed. \a accepted names the pictures that take the golden ones'
    /// places when they differ; "all" stands for each of them.
    PictureFolder(const QString &dir, const QString &elsewhere, const QStringList &accepted);

    /// Compares \a picture with the golden one of that \a name. What is wrong, for a person, with the files
    /// to look at; nothing when it is right or was accepted, of which a line on standard output tells.
    std::optional<QString> check(const QString &name, const QImage &picture) const;

    /// Of all that are stored.
    QStringList names() const;

private:
    QString goldenFile(const QString &name) const;
    void tidyUp(const QString &name) const;
    std::optional<QString> accept(const QString &name, const QImage &picture) const;

    const QString m_dir;
    const QString m_elsewhere;
    const QStringList m_accepted;
};
