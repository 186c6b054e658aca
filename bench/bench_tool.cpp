// Measures the main window in its own process and prints one line a figure: a name and a number.

#include "support/eventloop.h"
#include "support/heartbeat.h"
#include "support/loadedline.h"
#include "support/windowundertest.h"
#include "support/wire.h"

#include "diagnostics/diagnostics.h"
#include "forms/busyindicator.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QSpinBox>

#include <algorithm>
#include <sys/resource.h>

namespace {

using Record = thermalCommPacket_Blend_Zoom_R13_TypeDef;
using Clock = std::chrono::steady_clock;

double microseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::micro>(time).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void print(const char *name, double figure)
{
    std::printf("%s %.6g\n", name, figure);
    std::fflush(stdout);
}

Record shown(WindowUnderTest &tool)
{
    Record record{};
    tool.window.ui2config_qxblendzoom(record);
    return record;
}

/// Two records that differ in nearly every field of the form.
std::vector<Record> differentRecords(WindowUnderTest &tool)
{
    std::vector<Record> records;
    for (int turn = 0; turn < 2; ++turn) {
        for (auto *field : tool.window.findChildren<QSpinBox *>())
            field->setValue(turn == 0 ? field->minimum() : field->maximum());
        for (auto *field : tool.widget("tabWidget")->findChildren<QComboBox *>())
            field->setCurrentIndex(turn == 0 ? 0 : field->count() - 1);
        for (auto *field : tool.window.findChildren<QCheckBox *>())
            field->setChecked(turn == 1);
        records.push_back(shown(tool));
    }
    return records;
}

void measureFilling(WindowUnderTest &tool, const std::vector<Record> &records)
{
    constexpr int repetitions = 400;
    std::vector<double> times;
    for (int i = 0; i < repetitions; ++i) {
        const auto begin = Clock::now();
        tool.window.config2ui_qxblendzoom(&records[i % 2]);
        times.push_back(microseconds(Clock::now() - begin));
        QCoreApplication::processEvents();
    }
    print("record-to-form-us", median(times));

    times.clear();
    for (int i = 0; i < repetitions; ++i) {
        Record record{};
        const auto begin = Clock::now();
        tool.window.ui2config_qxblendzoom(record);
        times.push_back(microseconds(Clock::now() - begin));
    }
    print("form-to-record-us", median(times));
}

/// From the moment at which the camera has sent the last byte of its reply to the filled form.
void measureReply(WindowUnderTest &tool, const std::vector<Record> &records)
{
    PseudoTerminal camera;
    bool taken = false; // a message that has been dealt with ends with an empty line
    diagnostics::setSink([&](diagnostics::Stream, const QString &text) {
        taken = taken || text == QLatin1String("\n");
    });
    if (!tool.connectTo(camera.path()))
        qFatal("no connection");
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const auto *bytes = reinterpret_cast<const char *>(&records[i % 2]);
        const QByteArray frame = wire::frame(202, QByteArray(bytes, sizeof(Record)));
        camera.writeAll(frame.chopped(1));
        turnEventLoop(5);
        taken = false;
        const auto begin = Clock::now();
        camera.writeAll(frame.right(1));
        while (!taken)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        times.push_back(microseconds(Clock::now() - begin));
        const Record now = shown(tool);
        if (std::memcmp(&now, bytes, sizeof now) != 0)
            qFatal("the form is not filled");
    }
    print("reply-to-form-us", median(times));
    print("reply-to-form-longest-us", *std::max_element(times.begin(), times.end()));
    tool.get<QPushButton>("btConnectDisconnect")->click();
}

double processSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) { return time.tv_sec + time.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double share(int milliseconds)
{
    const double before = processSeconds();
    const auto begin = Clock::now();
    turnEventLoop(milliseconds);
    return (processSeconds() - before) / (microseconds(Clock::now() - begin) / 1e6);
}

void measureIndicator(WindowUnderTest &tool)
{
    turnEventLoop(4000); // the ports are looked at closely for some time after the start
    print("idle-share", share(10000));
    tool.window.slotSendMessage(nullptr, 0, 1, 1, COMIO_CMD_GET_DEVICE_ID); // nobody answers
    if (!tool.busy())
        qFatal("the indicator does not spin");
    print("spin-share", share(5000));
}

/// The longest gap of each of several seconds: one that another program causes does not hide the
/// others.
void measureLoad(WindowUnderTest &tool)
{
    PseudoTerminal camera;
    if (!tool.connectTo(camera.path()))
        qFatal("no connection");
    LoadedLine line(camera, 1000000, 6);
    Heartbeat heartbeat;
    std::vector<double> gaps;
    line.start();
    while (!line.isDone()) {
        heartbeat.restart();
        turnEventLoop(1000);
        gaps.push_back(heartbeat.longestGap());
    }
    line.wait();
    print("load-bytes-per-second", static_cast<double>(line.bytes()) / line.seconds());
    print("load-gap-ms", *std::max_element(gaps.begin(), gaps.end()));
    print("load-gap-median-ms", median(gaps));
}

} // namespace

int main(int argc, char *argv[])
{
    busyindicator::prepareProgram();
    QApplication application(argc, argv);
    diagnostics::setSink([](diagnostics::Stream, const QString &) {});

    WindowUnderTest tool;
    tool.window.show();
    tool.chooseModel(0xA0AF139E);
    const auto records = differentRecords(tool);
    measureFilling(tool, records);
    measureReply(tool, records);
    measureIndicator(tool);
    measureLoad(tool);
    return 0;
}
