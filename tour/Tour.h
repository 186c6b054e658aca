#pragma once

#include "SimulatedCamera.h"
#include "app/MainWindow.h"

#include <QDir>
#include <QTimer>

#include <functional>

/// One session of an operator with the main window, unattended. It uses the window as the operator
/// does: by the widgets that the form shows. Each step writes one line to standard output.
class Tour
{
public:
    struct Options
    {
        QString model; ///< model of the simulated camera; empty: no camera at all
        bool factory = false;
        QDir output; ///< folder of the pictures, which exists
    };

    explicit Tour(const Options &options);

    /// Runs all steps; false as soon as one fails.
    bool run();

private:
    using Step = bool (Tour::*)();

    bool openWindow();
    bool startCamera();
    bool choosePort();
    bool connectCamera();
    bool identify();
    bool readConfiguration();
    bool writeConfiguration();
    bool reconnect();
    bool compare();
    bool takePictures();

    template <class Widget>
    Widget *widget(const char *name);
    bool waitFor(const char *what, const std::function<bool()> &condition);
    bool isConnected();
    bool isBusy();
    void answerBox();
    bool failed(const QString &why);

    Options m_options;
    SimulatedCamera m_camera;
    MainWindow m_window{nullptr};
    QTimer m_boxWatch;
    QString m_expectedBox; ///< title of the box that is answered with Ok
    QString m_written;     ///< what the changed field was set to
    bool m_failed = false;
};
