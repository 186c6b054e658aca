#pragma once

#include <QStringList>

/// What the program was told to do. The toolkit's own options (-platform, -style ...) are left to
/// it.
struct CommandLine
{
    QStringList ports; ///< that the port list offers beside those of the system
    bool factory;      ///< show the buttons for the production line

    /// Ends the program if its arguments ask for text (help, version) or are wrong. Needs no
    /// application object, and so no display. Leaves nothing but the toolkit's options in `argv`,
    /// for the toolkit would take the name of a port for one of its own.
    static CommandLine read(int &argc, char *argv[]);
};
