// The port list while devices come and go. The devices are plugged into a /dev and /sys of the
// test's own, in which this very program runs once more and reports what is announced.

#include "link/SerialConnection.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

static const char *const watchOption = "--watch-ports";

// Runs a program ($1...) that sees $ROOT/dev and $ROOT/sys as /dev and /sys.
static const char *const namespaceScript = R"(
    export NODES="null zero full random urandom tty ptmx" SYSTEMD_DEVICE_VERIFY_SYSFS=0
    mkdir -p $ROOT/dev/pts $ROOT/dev/shm $ROOT/sys/class/tty
    for node in $NODES; do touch $ROOT/dev/$node; done
    exec unshare -rm bash -ec '
        for node in $NODES; do mount --bind /dev/$node $ROOT/dev/$node; done
        mount --rbind /dev/pts $ROOT/dev/pts
        mount --rbind /dev/shm $ROOT/dev/shm
        mount --rbind $ROOT/dev /dev
        mount --rbind $ROOT/sys /sys
        exec "$@"' -- "$@"
)";

static const char *const plugScript = R"(
    device=devices/pci0000:00/usb1/1-2/1-2:1.$MINOR/tty/$NAME
    mkdir -p $ROOT/sys/$device
    printf 'SUBSYSTEM=usb\nDEVTYPE=usb_interface\nDRIVER=cdc_acm\n' \
        > $ROOT/sys/${device%/tty/$NAME}/uevent
    printf "MAJOR=166\nMINOR=$MINOR\nDEVNAME=$NAME\nID_VENDOR_ID=1234\nID_MODEL_ID=5678\n" \
        > $ROOT/sys/$device/uevent
    ln -sfn ../../../../../../../class/tty $ROOT/sys/$device/subsystem
    ln -sfn null $ROOT/dev/$NAME
    ln -sfn ../../$device $ROOT/sys/class/tty/$NAME
)";

static int watchPorts(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    SerialConnection connection(nullptr);
    const auto say = [](const QString &text) {
        std::puts(qPrintable(text));
        std::fflush(stdout);
    };
    QObject::connect(&connection, &SerialConnection::signalPortListChanged,
                     [&](const QStringList &ports) { say("ports: " + ports.join(' ')); });
    QObject::connect(connection.findChild<QTimer *>(), &QTimer::timeout, [&] { say("polled"); });
    return QCoreApplication::exec();
}

class tst_PortList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingIsAnnouncedUntilAPortAppears();
    void followsPortsBeingPluggedAndUnplugged();

private:
    void plug(const QString &name, int minor)
    {
        QProcess script;
        QProcessEnvironment environment = m_environment;
        environment.insert("NAME", name);
        environment.insert("MINOR", QString::number(minor));
        script.setProcessEnvironment(environment);
        script.start("bash", {"-euc", plugScript});
        QVERIFY(script.waitForFinished());
        QCOMPARE(script.exitCode(), 0);
    }
    void unplug(const QString &name)
    {
        QVERIFY(QFile::remove(m_root->filePath("sys/class/tty/" + name)));
        QVERIFY(QFile::remove(m_root->filePath("dev/" + name)));
    }

    // The next line of the watching program.
    QString line()
    {
        while (!m_watcher->canReadLine())
            if (!m_watcher->waitForReadyRead(10000))
                return "the watching program fell silent";
        return QString::fromUtf8(m_watcher->readLine()).trimmed();
    }
    QString nextAnnouncement()
    {
        QString next = line();
        for (int polls = 0; next == "polled" && polls < 20; ++polls)
            next = line();
        return next;
    }
    bool silentForTwoPolls() { return line() == "polled" && line() == "polled"; }

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<QProcess> m_watcher;
    QProcessEnvironment m_environment;
};

void tst_PortList::init()
{
    QProcess probe;
    probe.start("unshare", {"-rm", "mount", "-t", "tmpfs", "none", "/mnt"});
    if (!probe.waitForFinished() || probe.exitCode() != 0)
        QSKIP("mount namespaces are not allowed here");

    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(m_root->isValid());
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert("ROOT", m_root->path());
    m_watcher = std::make_unique<QProcess>();
    m_watcher->setProcessEnvironment(m_environment);
    m_watcher->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_watcher->start("bash", {"-euc", namespaceScript, "bash",
                              QCoreApplication::applicationFilePath(), watchOption});
    QCOMPARE(line(), QString("polled")); // the folders are there, nothing is plugged in
}

void tst_PortList::cleanup()
{
    if (m_watcher) {
        m_watcher->kill();
        m_watcher->waitForFinished();
    }
    m_watcher.reset();
    m_root.reset();
}

void tst_PortList::nothingIsAnnouncedUntilAPortAppears()
{
    QVERIFY(silentForTwoPolls());
    plug("ttyACM0", 0);
    QCOMPARE(nextAnnouncement(), QString("ports: ttyACM0"));
    QVERIFY(silentForTwoPolls());
}

void tst_PortList::followsPortsBeingPluggedAndUnplugged()
{
    plug("ttyACM1", 1);
    QCOMPARE(nextAnnouncement(), QString("ports: ttyACM1"));
    plug("ttyACM0", 0);
    QCOMPARE(nextAnnouncement(), QString("ports: ttyACM0 ttyACM1"));
    unplug("ttyACM1");
    QCOMPARE(nextAnnouncement(), QString("ports: ttyACM0"));
    unplug("ttyACM0");
    QCOMPARE(nextAnnouncement(), QString("ports:"));
    QVERIFY(silentForTwoPolls());
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], watchOption) == 0)
        return watchPorts(argc, argv);
    QCoreApplication application(argc, argv);
    tst_PortList test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_portlist.moc"
