#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A running quorvix-simulator, taken from the folder of this program. It ends with this object, or
/// by itself when this process dies.
class SimulatedCamera
{
public:
    ~SimulatedCamera();

    /// Starts the simulator for `model` ("blend", "blend-zoom", "2.0"); false if it does not come
    /// up, with its messages in errorText().
    bool start(const QString &model);
    /// The link under which the camera's port is found, also after the camera restarted.
    QString port() const;
    QString errorText() const { return m_errorText; }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    QString m_errorText;
};
