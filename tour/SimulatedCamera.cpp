#include "SimulatedCamera.h"

#include <QCoreApplication>

static constexpr int START_MS = 10000;
static constexpr int END_MS = 5000;

SimulatedCamera::~SimulatedCamera()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel(); // it serves until the end of its standard input
    if (!m_process.waitForFinished(END_MS))
        m_process.kill();
}

bool SimulatedCamera::start(const QString &model)
{
    const QString program = QCoreApplication::applicationDirPath() + "/quorvix-simulator";
    m_process.start(program,
                    {"--exit-with-stdin", "--restart", "--model", model, "--link", port()});
    // Its first line names the device: from then on it answers.
    while (m_process.waitForReadyRead(START_MS)) {
        if (m_process.canReadLine())
            return true;
    }
    m_errorText = m_process.errorString() + ' ' + m_process.readAllStandardError();
    return false;
}

QString SimulatedCamera::port() const
{
    return m_folder.filePath("simulated-camera");
}
