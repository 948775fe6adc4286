#pragma once

#include "records/DataFiles.h"

#include <QSize>
#include <QString>
#include <QStringList>

// What the about box tells about the program and the machine it runs on,
// line by line, for the user to read or copy into a question to support.
namespace SystemInfo {

struct Facts
{
    QString programVersion;
    QString qtVersion;
    QString operatingSystem;
    QSize screen;       // in device-independent pixels
    double scale = 1.0; // device pixels per pixel
    QString dataFolder;
    bool sample = false; // the sample accounts are open
    int accounts = 0;    // live accounts of the open data set
    qint64 records = 0;  // transactions in their registers
    QString settingsFile;
};

// The version of this build (the project's version).
QString version();
// The one line that says what the program is.
QString description();
// The facts the data folder and the build give: version, Qt, system, data
// set and its counts. The screen and the settings file are the caller's.
Facts gather(const DataFiles &files);
// The lines shown and copied, "Name: value".
QStringList lines(const Facts &facts);

} // namespace SystemInfo
