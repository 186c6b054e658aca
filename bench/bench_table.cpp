// Runs the benchmarks and sets their figures beside the targets. Arguments choose among "link",
// "start" and "window"; without any all are run.

#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVector>

#include <algorithm>
#include <ctime>

namespace {

QString program(const char *name)
{
    return QCoreApplication::applicationDirPath() + '/' + QLatin1String(name);
}

/// Standard output of a program that has to succeed.
QByteArray
outputOf(const QString &path, const QStringList &arguments,
         const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setProcessEnvironment(environment);
    process.start(path, arguments);
    if (!process.waitForFinished(600000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        qFatal("%s failed", qPrintable(path));
    return process.readAllStandardOutput();
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    const int half = values.size() / 2;
    return values.size() % 2 ? values.at(half) : (values.at(half - 1) + values.at(half)) / 2;
}

/// Bytes a second by the name of the benchmark, medians of interleaved repetitions.
QHash<QString, double> linkSpeeds()
{
    const QByteArray json = outputOf(
        program("bench_link"),
        {"--benchmark_filter=^(crc(Own|Boost)/(236|1020)|parser/payload:223/chunk:(1|512))$",
         "--benchmark_repetitions=15", "--benchmark_min_time=0.05",
         "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true",
         "--benchmark_format=json"});
    QHash<QString, double> speeds;
    for (const QJsonValue &value : QJsonDocument::fromJson(json)["benchmarks"].toArray())
        if (value["aggregate_name"].toString() == QLatin1String("median"))
            speeds[value["run_name"].toString()] = value["bytes_per_second"].toDouble();
    return speeds;
}

struct Start
{
    double milliseconds;
    double cpuMilliseconds;
    double megabytes;
    int widgets;
};

/// Starts a program and waits for its first paint.
Start startOf(const QString &path, const QStringList &arguments)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(FIRST_PAINT));
    timespec begin{};
    clock_gettime(CLOCK_MONOTONIC, &begin);
    const QByteArray text = outputOf(path, arguments, environment);
    const int at = text.indexOf("first-paint ");
    if (at < 0)
        qFatal("%s painted nothing", qPrintable(path));
    const QList<QByteArray> words = text.mid(at).trimmed().split(' ');
    const double nanoseconds =
        words.at(1).toDouble() - (static_cast<double>(begin.tv_sec) * 1e9 + double(begin.tv_nsec));
    return {nanoseconds / 1e6, words.at(2).toDouble(), words.at(3).toDouble() * 1024 / 1e6,
            words.at(4).toInt()};
}

struct Starts
{
    QVector<double> times;
    QVector<double> cpuTimes;
    QVector<double> memory;

    void add(const Start &start)
    {
        times.append(start.milliseconds);
        cpuTimes.append(start.cpuMilliseconds);
        memory.append(start.megabytes);
    }
};

QHash<QString, double> toolFigures()
{
    QHash<QString, double> figures;
    for (const QByteArray &line : outputOf(program("bench_tool"), {}).split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() == 2)
            figures[QString::fromLatin1(words.at(0))] = words.at(1).toDouble();
    }
    return figures;
}

enum class Sense { AtLeast, AtMost };

class Table
{
public:
    void row(const QString &measure, Sense sense, double target, double figure, const QString &unit,
             const QString &remark)
    {
        const bool met = sense == Sense::AtLeast ? figure >= target : figure <= target;
        m_out << measure.leftJustified(46) << (sense == Sense::AtLeast ? ">= " : "<= ")
              << number(target, unit).leftJustified(10) << number(figure, unit).leftJustified(12)
              << (met ? "met     " : "MISSED  ") << remark << '\n';
        m_out.flush();
    }
    void heading()
    {
        m_out << QStringLiteral("Measure").leftJustified(46)
              << QStringLiteral("Target").leftJustified(13)
              << QStringLiteral("Figure").leftJustified(12) << "        In this run\n"
              << QString(110, '-') << '\n';
    }

private:
    static QString number(double value, const QString &unit)
    {
        return QString::number(value, 'g', 3) + unit;
    }

    QTextStream m_out{stdout};
};

QString speed(double bytesPerSecond)
{
    return QString::number(bytesPerSecond / 1e9, 'f', 2) + QStringLiteral(" GB/s");
}

void crcAndParser(Table &table)
{
    const auto speeds = linkSpeeds();
    for (const char *size : {"236", "1020"}) {
        const double own = speeds.value(QStringLiteral("crcOwn/%1").arg(size));
        const double boost = speeds.value(QStringLiteral("crcBoost/%1").arg(size));
        table.row(QStringLiteral("CRC-32 of %1 bytes / boost::crc_optimal").arg(size),
                  Sense::AtLeast, 6, own / boost, QStringLiteral("x"),
                  speed(own) + QStringLiteral(" / ") + speed(boost));
    }
    // The CRC of a frame of 223 bytes goes over 236.
    const double crc = speeds.value(QStringLiteral("crcOwn/236"));
    const double bulk = speeds.value(QStringLiteral("parser/payload:223/chunk:512"));
    const double single = speeds.value(QStringLiteral("parser/payload:223/chunk:1"));
    table.row(QStringLiteral("Parser, 223-byte payloads, by 512 / CRC"), Sense::AtLeast, 0.65,
              bulk / crc, {}, speed(bulk) + QStringLiteral(" / ") + speed(crc));
    table.row(QStringLiteral("Parser, 223-byte payloads, byte by byte / CRC"), Sense::AtLeast, 0.08,
              single / crc, {}, speed(single) + QStringLiteral(" / ") + speed(crc));
}

void start(Table &table)
{
    const int widgets = startOf(program("quorvix-config"), {}).widgets; // and warms the caches
    const QStringList asMany{QString::number(widgets)};
    startOf(program("bench_plainwindow"), asMany);
    Starts tool;
    Starts plain;
    for (int i = 0; i < 10; ++i) {
        tool.add(startOf(program("quorvix-config"), {}));
        plain.add(startOf(program("bench_plainwindow"), asMany));
    }
    table.row(QStringLiteral("Start to first paint / plain window"), Sense::AtMost, 0.45,
              median(tool.times) / median(plain.times), {},
              QStringLiteral("%1 ms / %2 ms, of a processor %3 ms / %4 ms; %5 widgets each")
                  .arg(median(tool.times), 0, 'f', 0)
                  .arg(median(plain.times), 0, 'f', 0)
                  .arg(median(tool.cpuTimes), 0, 'f', 0)
                  .arg(median(plain.cpuTimes), 0, 'f', 0)
                  .arg(widgets));
    table.row(QStringLiteral("Peak memory after start / plain window"), Sense::AtMost, 0.40,
              median(tool.memory) / median(plain.memory), {},
              QStringLiteral("%1 MB / %2 MB")
                  .arg(median(tool.memory), 0, 'f', 1)
                  .arg(median(plain.memory), 0, 'f', 1));
}

void window(Table &table)
{
    const auto figures = toolFigures();
    table.row(QStringLiteral("Busy indicator while it spins, of a core"), Sense::AtMost, 10,
              figures.value(QStringLiteral("spin-share")) * 100, QStringLiteral(" %"), QString());
    table.row(QStringLiteral("Idle window, of a core"), Sense::AtMost, 0.5,
              figures.value(QStringLiteral("idle-share")) * 100, QStringLiteral(" %"), QString());
    table.row(QStringLiteral("Longest gap of the event loop under load"), Sense::AtMost, 16,
              figures.value(QStringLiteral("load-gap-ms")), QStringLiteral(" ms"),
              QStringLiteral("%1 MB/s; median of the longest of each second %2 ms")
                  .arg(figures.value(QStringLiteral("load-bytes-per-second")) / 1e6, 0, 'f', 2)
                  .arg(figures.value(QStringLiteral("load-gap-median-ms")), 0, 'f', 1));
    table.row(QStringLiteral("Last byte of a configuration to filled form"), Sense::AtMost, 2,
              figures.value(QStringLiteral("reply-to-form-us")) / 1e3, QStringLiteral(" ms"),
              QStringLiteral("longest of 200 %1 ms; filling alone %2 ms")
                  .arg(figures.value(QStringLiteral("reply-to-form-longest-us")) / 1e3, 0, 'f', 2)
                  .arg(figures.value(QStringLiteral("record-to-form-us")) / 1e3, 0, 'f', 2));
    table.row(QStringLiteral("Form to record"), Sense::AtMost, 50,
              figures.value(QStringLiteral("form-to-record-us")), QStringLiteral(" us"), {});
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QTemporaryDir runtime; // of the programs measured; Qt warns without one
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    Table table;
    table.heading();
    const QStringList chosen = QCoreApplication::arguments().mid(1);
    const std::pair<const char *, void (*)(Table &)> groups[] = {
        {"link", crcAndParser}, {"start", start}, {"window", window}};
    for (const auto &[name, measure] : groups)
        if (chosen.isEmpty() || chosen.contains(QLatin1String(name)))
            measure(table);
    return 0;
}
