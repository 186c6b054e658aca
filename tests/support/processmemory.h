#pragma once

#include <QFile>
#include <QList>

#include <malloc.h>
#include <unistd.h>

/// Bytes of main memory that this process occupies, after its allocator gave back what it holds in
/// reserve.
inline qint64 residentMemory()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/statm");
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}
