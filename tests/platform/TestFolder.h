#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace glimmet {

/// What a file holds; nothing where there is none.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool putFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Everything in a folder but "." and "..", hidden entries and broken links too.
inline QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// A folder for a preferences file.
class TestFolder {
public:
    QString path() const { return m_folder.path(); }
    QString file() const { return path() + QStringLiteral("/preferences.json"); }

private:
    QTemporaryDir m_folder;
};

} // namespace glimmet
