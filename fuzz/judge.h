#pragma once

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

/// Ends the program, as a finding, unless the claim about the tool holds.
inline void judge(bool holds, const char *claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", claim);
    std::abort();
}

/// The same for two byte strings; a finding shows both, with `name` before the second.
inline void judgeEqual(const QByteArray &expected, const QByteArray &found, const char *name)
{
    if (expected == found)
        return;
    std::fprintf(stderr, "Expected:\n%s\nBut %s:\n%s\n", expected.constData(), name,
                 found.constData());
    std::abort();
}
