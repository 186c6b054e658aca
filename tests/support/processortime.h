#pragma once

#include <ctime>

/// Seconds of processor time that this process has used. A machine under load does not change them.
inline double processorTime()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}
