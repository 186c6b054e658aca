#pragma once

#include "simulator/Faults.h"

#include "camera/models.h"

#include <QStringList>

/// What the command line asks of the simulator.
struct Options
{
    const Model *model = nullptr;
    QByteArray serial; ///< null if not given
    quint32 firmware = 0;
    QString configurationFile;
    QString factoryFile;
    QString stateDirectory;
    QString link;
    bool log = false;
    bool restart = false;
    bool exitWithStdin = false;
    Faults faults;
    quint32 seed = 1;
};

/// Reads the program's arguments (the first is its name). Returns what is wrong with them, empty if
/// nothing. For --help and --version it answers and ends the program.
QString parseOptions(const QStringList &arguments, Options &options);
