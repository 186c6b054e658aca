#pragma once

#include "diagnostics/diagnostics.h"
#include "link/FrameParser.h"

#include <QStringList>
#include <QtTest>

inline QString told(uint32_t command, const QByteArray &payload)
{
    return QStringLiteral("message %1 [%2]").arg(command).arg(QString(payload.toHex()));
}

inline QByteArray toBytes(const QVector<uint8_t> &payload)
{
    return {reinterpret_cast<const char *>(payload.constData()), payload.size()};
}

/// What a parser tells, messages and diagnostic lines in one sequence.
class Trace
{
public:
    Trace()
    {
        diagnostics::setSink([this](diagnostics::Stream stream, const QString &text) {
            QCOMPARE(stream, diagnostics::Stream::Out);
            QVERIFY(text.endsWith('\n'));
            events.append(text.chopped(1));
        });
    }
    ~Trace() { diagnostics::setSink({}); }
    Trace(const Trace &) = delete;
    Trace &operator=(const Trace &) = delete;

    void feed(const QByteArray &bytes) { parser.feed(bytes, handler); }
    void feedBytewise(const QByteArray &bytes)
    {
        for (const char byte : bytes)
            feed(QByteArray(1, byte));
    }

    QStringList events;
    FrameParser parser;
    FrameParser::Handler handler = [this](ComioInterfaceCommand_TypeDef command,
                                          const QVector<uint8_t> &payload) {
        events.append(told(command, toBytes(payload)));
    };
};
