// Files on disk: loading any of them leaves a tool that saves a valid one, and what was saved comes
// back as it was.
//
// Input: one byte with the active device (bit 0: Blend Zoom), whether it is a configuration or a
// factory file (bit 1), the kind of a configuration (bits 2 and 3), whether modal windows are
// answered with Ok (bit 4) and whether the path names no file (bit 5); one byte with the number of
// KiB to append, or with what it names instead; then the content.

#include "desktop.h"
#include "factorydialog.h"
#include "formrecords.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    judge(file.open(QIODevice::ReadOnly), "a file that was saved can be read");
    return file.readAll();
}

void store(const QString &path, const QByteArray &content)
{
    QFile file(path);
    judge(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
          "the temporary folder takes the input");
}

/// Nothing, a folder, a pipe without a writer or a device that never ends.
void putNoFile(const QString &path, int kind)
{
    if (kind == 1)
        QDir().mkdir(path);
    else if (kind == 2)
        judge(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0, "a pipe can be made");
    else if (kind == 3)
        QFile::link(QStringLiteral("/dev/zero"), path);
}

void loadConfiguration(const QString &path, const QByteArray &content, bool zoom, const QDir &dir)
{
    static auto *window = Desktop::lasting<MainWindow>();
    window->slotDeviceChanged(zoom ? KovoDevice_QXBlendZoom : KovoDevice_QXBlend);
    const QByteArray before = configuration::ofForm(*window, zoom);
    window->loadConfigurationFile(path);
    if (!configuration::isValid(content))
        judgeEqual(before.toHex(), configuration::ofForm(*window, zoom).toHex(),
                   "after an invalid file the form makes");

    const QString saved = dir.filePath(QStringLiteral("saved.bin"));
    window->saveConfigurationFile(saved);
    const QByteArray first = contentOf(saved);
    judge(configuration::isValid(first) && configuration::isZoom(first) == zoom &&
              first.size() == (zoom ? 223 : 207),
          "the saved file is a record of the active device");
    window->loadConfigurationFile(saved);
    window->saveConfigurationFile(saved);
    judgeEqual(configuration::lasting(first).toHex(),
               configuration::lasting(contentOf(saved)).toHex(), "loaded and saved again it is");
}

void judgeReport(const QString &path)
{
    int rows = 0;
    for (const QByteArray &line : contentOf(path).split('\n'))
        rows += line.endsWith(',') ? 1 : 0;
    judge(rows >= 7 + 7 + 3, "the report holds every row of the tables");
}

/// Printable ASCII without the separator: every file's name may hold that.
bool isPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= ' ' && c <= '~' && c != '/'; });
}

void loadFactoryFile(const QString &path, const QByteArray &content, bool zoom, bool ok,
                     const QDir &dir)
{
    static auto *factory = new FactoryDialog;
    factory->devices.setDevice(zoom ? KovoDevice_QXBlendZoom : KovoDevice_QXBlend);
    const QByteArray before = factory->recordOfForm();
    factory->dialog.loadFile(path);
    QByteArray after = factory->recordOfForm();
    const bool taken = zoom && content.size() >= before.size();
    QByteArray expected = before;
    if (taken) {
        expected.replace(4, 12, shownSerialNumber(content.mid(4, 12), before.mid(4, 12)));
        if (ok)
            expected.replace(16, 400, content.mid(16, 400));
    }
    judgeEqual(expected.toHex(), after.toHex(), "after the file the form makes");

    factory->dialog.writeFile(dir.path());
    factory->dialog.writeReport(dir.path());
    const QString serial = factory->get<QLineEdit>("leSerialNumber")->text();
    const bool refused = dir.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    if (refused || serial.contains('/')) {
        judge(refused, "a serial number that is a path names no file");
        judge(!isPlain(serial), "a plain serial number names a file");
        return;
    }
    // QDir::filePath() would take a name that begins with a colon for that of a resource.
    const QString saved = dir.path() + '/' + serial + QStringLiteral(".dat");
    const QByteArray written = contentOf(saved);
    judgeEqual(zoom ? after.toHex() : QByteArray(), written.toHex(), "the saved file is");
    if (zoom)
        judgeReport(dir.path() + '/' + serial + QStringLiteral(".txt"));
    factory->dialog.loadFile(saved);
    judgeEqual(after.toHex(), factory->recordOfForm().toHex(),
               "after the saved file the form makes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    Desktop &desktop = Desktop::instance();
    Input input(bytes, size);
    const auto mode = input.number<quint8>();
    const int appended = input.number<quint8>() * 1024;
    const bool zoom = mode & 1;
    const bool factory = mode & 2;
    const bool ok = mode & 16;
    const bool noFile = mode & 32;
    desktop.answer(ok);

    const QTemporaryDir folder;
    QDir dir(folder.path());
    QByteArray content = factory ? input.rest() : configuration::fromInput(mode >> 2 & 3, input);
    content.append(QByteArray(appended, '\x5A'));
    const QString path = dir.filePath(QStringLiteral("input"));
    if (noFile) {
        content.clear();
        putNoFile(path, appended / 1024 % 4);
    } else {
        store(path, content);
    }
    dir.mkdir(QStringLiteral("output"));
    const QDir output(dir.filePath(QStringLiteral("output")));
    if (factory)
        loadFactoryFile(path, content, zoom, ok, output);
    else
        loadConfiguration(path, content, zoom, output);
    Desktop::settle();
    return 0;
}
