#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// What one unit of work does to the data folder, as its journal holds it: the
// renames, the size every written file had before, and each record write with
// the bytes it replaces. With both images a unit can be finished or undone.
struct Journal
{
    struct Rename
    {
        QString from;
        QString to;
    };
    struct FileBefore
    {
        QString file; // by its name after the renames
        qint64 size;  // -1: the file did not exist
    };
    struct Write
    {
        QString file;
        qint64 offset;
        QByteArray bytes;
        QByteArray oldBytes; // what the file held there (cut at its old end)
    };

    std::vector<Rename> renames;
    std::vector<FileBefore> before;
    std::vector<Write> writes;

    QByteArray serialize() const;

    enum class Parsed {
        Valid,
        Damaged, // does not check out: it was never committed
        Refused, // checks out but names something outside the data files
    };
    // Reads a journal; for a refused one, *why says what it named.
    static Parsed parse(const QByteArray &bytes, Journal *out, QString *why);

    // Why a journal may not touch this name (empty when it may): only plain
    // names of the program's own data files, inside the data folder.
    static QString problemWithName(const QString &name);
    // The record length of a data file by its name; 0 for any other name.
    static int recordLengthOf(const QString &name);

    // A file being removed is first renamed to this name (so that the rename
    // can be undone like any other) and deleted once its unit is done.
    static QString removedName(const QString &name);
    static bool isRemovedName(const QString &name);
};
