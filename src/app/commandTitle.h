#pragma once

#include <QString>

/// What an operator calls a command ("Write configuration"); its number if it has no title.
QString commandTitle(quint32 command);
