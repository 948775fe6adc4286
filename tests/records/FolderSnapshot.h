#pragma once

#include <QDir>
#include <QFile>
#include <QMap>

// Every file of a folder by name with its bytes: two snapshots compare equal
// only when the same files hold the same bytes.
inline QMap<QString, QByteArray> folderSnapshot(const QString &dir)
{
    QMap<QString, QByteArray> files;
    const QStringList names = QDir(dir).entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        QFile f(dir + QLatin1Char('/') + name);
        if (f.open(QIODevice::ReadOnly))
            files.insert(name, f.readAll());
    }
    return files;
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}
