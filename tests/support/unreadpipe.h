#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// A named pipe that is full and stays so until the test reads from it.
class UnreadPipe
{
public:
    static constexpr int Size = 4096; ///< one page: a writer waits until all of it is read

    UnreadPipe()
    {
        if (::mkfifo(QFile::encodeName(path()), 0600) != 0)
            qFatal("no pipe");
        m_pipe = ::open(QFile::encodeName(path()), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        if (::fcntl(m_pipe, F_SETPIPE_SZ, Size) != Size)
            qFatal("no pipe of one page");
        const QByteArray page(Size, '.');
        while (::write(m_pipe, page.constData(), size_t(page.size())) > 0)
            ;
    }
    ~UnreadPipe() { ::close(m_pipe); }
    UnreadPipe(const UnreadPipe &) = delete;
    UnreadPipe &operator=(const UnreadPipe &) = delete;

    QString path() const { return m_folder.filePath(QStringLiteral("pipe")); }

    /// Makes room for one more page.
    QByteArray readPage()
    {
        char page[Size];
        const ssize_t size = ::read(m_pipe, page, sizeof page);
        return QByteArray(page, int(size < 0 ? 0 : size));
    }

private:
    QTemporaryDir m_folder;
    int m_pipe = -1;
};
