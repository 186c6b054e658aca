#pragma once

#include "factory/LiveEdit.h"
#include "support/captureddiagnostics.h"
#include "support/referenceframes.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <memory>

using Columns = QVector<int>;

constexpr quint32 setHdmi = 130;
constexpr quint32 setAnalog = 131;

/// The frame that carries A to G as seven little-endian 16-bit numbers.
inline QByteArray displacementFrame(quint32 command, const Columns &values)
{
    QByteArray payload;
    for (const int value : values) {
        payload += char(unsigned(value) & 0xFF);
        payload += char(unsigned(value) >> 8 & 0xFF);
    }
    return reference::frame(command, payload);
}

/// What the names of an output's boxes begin with.
inline const QString hdmi = QStringLiteral("sbFpga");
inline const QString analog = QStringLiteral("sbFpga_Analog_");

/// A live editor of a connected camera, what it sends and says.
class LiveEditWindow
{
protected:
    void open()
    {
        said = std::make_unique<CapturedDiagnostics>();
        packetManager = std::make_unique<kovoPacketManager>(nullptr);
        window = std::make_unique<LiveEdit>();
        window->setPacketManager(packetManager.get());
        window->connectDevice(true);
        sent = std::make_unique<QSignalSpy>(window.get(), &LiveEdit::signalSendPackage);
    }
    void close()
    {
        sent.reset();
        window.reset();
        packetManager.reset();
        said.reset();
    }

    template <class T>
    T *widget(const QString &name)
    {
        auto *found = window->findChild<T *>(name);
        if (found == nullptr)
            qFatal("no widget %s", qPrintable(name));
        return found;
    }
    QSpinBox *box(const QString &name) { return widget<QSpinBox>(name); }
    QDoubleSpinBox *real(const char *name) { return widget<QDoubleSpinBox>(QLatin1String(name)); }
    void click(const char *name) { widget<QPushButton>(QLatin1String(name))->click(); }
    QTabWidget *tabs() { return window->findChild<QTabWidget *>(); }
    void show()
    {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    Columns sums(const QString &output)
    {
        Columns values;
        for (const char letter : {'A', 'B', 'C', 'D', 'E', 'F', 'G'}) {
            const QString name = output + QLatin1Char(letter);
            const auto *share = window->findChild<QSpinBox *>(name + QStringLiteral("_1"));
            values << box(name)->value() + (share != nullptr ? share->value() : 0);
        }
        return values;
    }
    /// C, D, F, G
    Columns shares(const QString &output)
    {
        Columns values;
        for (const char *suffix : {"C_1", "D_1", "F_1", "G_1"})
            values << box(output + QLatin1String(suffix))->value();
        return values;
    }
    QByteArray takeFrame()
    {
        return sent->isEmpty() ? QByteArray("nothing sent") : sent->takeFirst().at(0).toByteArray();
    }

    std::unique_ptr<CapturedDiagnostics> said;
    std::unique_ptr<kovoPacketManager> packetManager;
    std::unique_ptr<LiveEdit> window;
    std::unique_ptr<QSignalSpy> sent;
};
