#pragma once

#include "support/pseudoterminal.h"
#include "support/wire.h"

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

/// A camera that talks without a pause: numbered lines of GPS text, channel levels and
/// acknowledgements, and between them everything that is no frame. It leaves the tool no excuse: no
/// valid frame is spoilt by what comes before it.
class LoadedLine
{
public:
    /// Offers `bytesPerSecond` for `seconds`; less if the other end reads slower.
    LoadedLine(PseudoTerminal &line, int bytesPerSecond, double seconds, unsigned seed = 1)
        : m_line(line), m_rate(bytesPerSecond), m_seconds(seconds), m_random(seed)
    {
    }
    ~LoadedLine() { wait(); }

    void start()
    {
        m_thread = std::thread([this] { run(); });
    }
    void wait()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

    bool isDone() const { return m_done; }
    bool isBroken() const { return m_broken; } ///< the other end read nothing for long
    int lines() const { return m_lines; }      ///< numbered lines of text sent, from 0 on
    int validFrames() const { return m_valid; }
    int invalidPieces() const { return m_invalid; }
    qint64 bytes() const { return m_bytes; }
    double seconds() const { return m_elapsed; }

private:
    void run()
    {
        using clock = std::chrono::steady_clock;
        constexpr int ticksPerSecond = 100;
        const auto begin = clock::now();
        const auto end = begin + std::chrono::duration<double>(m_seconds);
        for (int tick = 1; clock::now() < end && !m_broken; ++tick) {
            QByteArray burst;
            while (burst.size() < m_rate / ticksPerSecond)
                burst += piece();
            m_broken = !m_line.writeAll(burst);
            m_bytes += burst.size();
            std::this_thread::sleep_until(begin +
                                          tick * std::chrono::milliseconds(1000) / ticksPerSecond);
        }
        // The last frame tells that everything before it has been taken.
        ++m_valid;
        m_broken = m_broken || !m_line.writeAll(numberedLine());
        m_elapsed = std::chrono::duration<double>(clock::now() - begin).count();
        m_done = true;
    }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    QByteArray noise(int size)
    {
        QByteArray bytes(size, '\0');
        for (char &byte : bytes) {
            byte = static_cast<char>(m_random());
            if (byte == 'K' || byte == 'O') // the beginning of a magic would spoil the next frame
                byte = '\0';
        }
        return bytes;
    }

    QByteArray piece()
    {
        if (below(3) > 0) {
            ++m_valid;
            return validFrame();
        }
        ++m_invalid;
        const QByteArray frame = wire::frame(202, noise(223));
        switch (below(5)) {
        case 0: { // one bit turned behind the length field
            QByteArray damaged = frame;
            const int at = 8 + below(frame.size() - 9);
            damaged[at] = static_cast<char>(damaged.at(at) ^ (1 << below(8)));
            return damaged;
        }
        case 1: { // cut off, and the line quiet for as long as the rest would take
            const int size = 16 + below(frame.size() - 21);
            return frame.left(size) + QByteArray(frame.size() - size, '\0');
        }
        case 2: // longer than any frame may be
            return "KOVO" + wire::bigEndian<quint32>(1025 + m_random() % 1000000) + noise(40);
        case 3: // another magic
            return "KOVX" + frame.mid(4, 4) + noise(60);
        default:
            return noise(1 + below(200));
        }
    }

    /// GPS text that is its number, and as long as a sentence of a receiver.
    QByteArray numberedLine()
    {
        return wire::frame(226,
                           QByteArray::number(m_lines++) + QByteArray(60 + below(20), ' ') + '\0');
    }

    QByteArray validFrame()
    {
        switch (below(20)) {
        case 0:
            return numberedLine();
        case 1:
            return wire::frame(223, noise(32));
        case 2:
            return wire::frame(233);
        default: // acknowledgement of a command that nobody has sent, with data nobody asked for
            return wire::frame(230, noise(below(1000)));
        }
    }

    PseudoTerminal &m_line;
    int m_rate;
    double m_seconds;
    std::mt19937 m_random;
    int m_lines = 0;
    int m_valid = 0;
    int m_invalid = 0;
    qint64 m_bytes = 0;
    double m_elapsed = 0;
    std::atomic<bool> m_broken{false};
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};
