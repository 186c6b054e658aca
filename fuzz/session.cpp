// A session with everything at once: messages of every code and length from the camera, in bursts
// and damaged, an operator at every widget of all windows, files, disconnects and a device that is
// pulled out. The tool survives it, answers for its line and still makes a valid record.
//
// Input: one byte with the model (bits 0 and 1: Blend, Blend Zoom, 2.0, none), then steps. The low
// three bits of a step's first byte say what it is, the fourth whether modal windows are answered
// with Ok, and the fifth whether what comes from the camera waits to arrive together with the next
// step's; what follows stands at the step's function.

#include "cameraline.h"
#include "desktop.h"
#include "formrecords.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QWhatsThis>
#include <QWheelEvent>

#include <memory>

namespace {

constexpr int longestSession = 96;      // steps
constexpr int longestBurst = 32 * 1024; // bytes that arrive together
constexpr int longestPayload = 1008;    // bytes of the longest frame
constexpr int longestFrame = 1024 + 5;
constexpr int receiveBuffer = 0x40000; // what a frame without an end fills before it is given up

constexpr quint32 models[] = {records::keyBlend, records::keyBlendZoom, records::key20, 0};

class Session
{
public:
    Session();

    void begin(int model);
    void step(Input &input);
    void end();

private:
    // What comes from the camera
    QByteArray message(Input &input);
    QByteArray recordMessage(Input &input);
    QByteArray identityMessage(Input &input);
    // What the operator does
    void act(Input &input);
    void type(Input &input);
    void press(Input &input);
    void command(Input &input);

    QWidget *chosenWidget(Input &input) const;
    void editCell(QTableWidget *table, int cell, const QString &text);
    bool isConnected() const { return m_connect->text() == QLatin1String("Disconnect"); }
    void connectTool();
    void pullOut();
    void deliver();
    void settle();
    bool hearsAgain(int silence);

    Desktop &m_desktop = Desktop::instance();
    MainWindow *m_window = Desktop::lasting<MainWindow>();
    QPushButton *m_connect = nullptr;
    QVector<QPointer<QWidget>> m_widgets;
    QVector<QPointer<QAction>> m_actions;
    std::unique_ptr<CameraLine> m_line;
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_burst;
    bool m_identityExpected = false;
    int m_unknownReplies = 0;
};

Session::Session()
{
    QApplication::setQuitOnLastWindowClosed(false);
    m_window->showFactoryButtons();
    m_connect = m_window->findChild<QPushButton *>(QStringLiteral("btConnectDisconnect"));
    // Those with a name of their own: Qt's inner ones come and go.
    const auto own = [](const QObject *object) {
        const QString name = object->objectName();
        return !name.isEmpty() && !name.startsWith(QLatin1String("qt_")) &&
               !name.startsWith(QLatin1String("_q_"));
    };
    for (QWidget *widget : m_window->findChildren<QWidget *>())
        if (own(widget))
            m_widgets.append(widget);
    // Neither the end of the program nor the desktop's browser.
    const QStringList outside{QStringLiteral("actionQuit"), QStringLiteral("actionUserGuide")};
    for (QAction *action : m_window->findChildren<QAction *>())
        if (own(action) && !outside.contains(action->objectName()))
            m_actions.append(action);
    judge(m_connect && m_widgets.size() > 200 && m_actions.size() >= 4, "the windows are there");
    diagnostics::setSink([this](diagnostics::Stream, const QString &text) {
        m_unknownReplies += text == QLatin1String("<<< Device replied with COMIO_CMD_UNKNOWN\n");
    });
}

void Session::begin(int model)
{
    m_desktop.answer(true);
    m_folder = std::make_unique<QTemporaryDir>();
    m_desktop.choose(m_folder->filePath(QStringLiteral("record.bin")));
    m_window->show();
    // The same form for every input: each record fills the fields of its model.
    for (const QByteArray &record : {records::blend(), records::blendZoom()})
        m_window->parseUnknownControlStruct(records::payload(records::sealed(record)));
    m_window->slotDeviceChanged(static_cast<KovoDeviceCRCKey_TypeDef>(models[model]));
    m_line = std::make_unique<CameraLine>();
    connectTool();
    settle();
}

void Session::step(Input &input)
{
    const auto kind = input.number<quint8>();
    m_desktop.answer(kind & 8);
    switch (kind & 7) {
    case 0:
        m_burst += message(input);
        break;
    case 1:
        m_burst += recordMessage(input);
        break;
    case 2:
        m_burst += identityMessage(input);
        break;
    case 3:
        m_burst += input.bytes(input.number<quint8>());
        break;
    case 4:
        act(input);
        break;
    case 5:
        type(input);
        break;
    case 6:
        press(input);
        break;
    default:
        command(input);
        break;
    }
    if (!(kind & 16) || m_burst.size() > longestBurst)
        deliver();
    settle();
}

void Session::end()
{
    deliver();
    // Whatever came before, the tool finds its way back into the stream.
    m_desktop.answer(false);
    judge(hearsAgain(longestFrame) || hearsAgain(receiveBuffer + longestFrame),
          "a frame behind any others is heard");
    if (isConnected())
        m_connect->click();
    settle();
    judge(!isConnected(), "the tool disconnects");
    m_line.reset();
    for (QDialog *dialog : m_window->findChildren<QDialog *>())
        dialog->close();
    settle();
    judge(configuration::isValid(configuration::ofForm(*m_window, false)),
          "the form makes a valid Blend record");
    judge(configuration::isValid(configuration::ofForm(*m_window, true)),
          "the form makes a valid Blend Zoom record");
}

/// A code below 400, or any; part number and count; a length; bytes to fill it with, over and over;
/// and where one of its bits is turned, if anywhere.
QByteArray Session::message(Input &input)
{
    const auto code = input.number<quint16>();
    const quint32 command = code & 0x8000 ? input.number<quint32>() : code % 400;
    const auto parts = input.number<quint8>();
    const int length = input.number<quint16>() % (longestPayload + 1);
    QByteArray payload = input.bytes(input.number<quint8>());
    payload.append(payload.isEmpty() ? '\0' : payload.at(0));
    payload = payload.repeated(length / payload.size() + 1).left(length);
    QByteArray frame =
        wire::frame(command, payload, parts ? parts & 15 : 1, parts ? parts >> 4 : 1);
    const auto damage = input.number<quint16>();
    if (damage)
        frame[damage % frame.size()] = char(frame.at(damage % frame.size()) ^ (1 << damage % 8));
    return frame;
}

/// A kind of record as in configurationrecords.h and its content's size, then that; as the answer
/// to one of the commands that are answered so.
QByteArray Session::recordMessage(Input &input)
{
    const auto kind = input.number<quint8>();
    constexpr quint32 codes[] = {202, 208, 211, 202};
    QByteArray bytes = input.bytes(input.number<quint8>());
    const quint32 code = codes[kind >> 2 & 3];
    if (code == 211) {
        bytes = bytes.leftJustified(kind & 1 ? 416 : 32, bytes.isEmpty() ? '\0' : bytes.at(0));
    } else {
        Input content(reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size()));
        bytes = configuration::fromInput(kind & 3, content);
    }
    return wire::frame(code, bytes.left(longestPayload));
}

/// A model, a firmware date and a serial number with its size.
QByteArray Session::identityMessage(Input &input)
{
    const auto model = input.number<quint8>();
    const quint32 key = model & 4 ? input.number<quint32>() : models[model & 3];
    const quint32 firmware = model & 8 ? input.number<quint32>() : 20191212;
    return wire::frame(216, wire::littleEndian(key) + wire::littleEndian(firmware) +
                                input.bytes(input.number<quint8>()));
}

QWidget *Session::chosenWidget(Input &input) const
{
    QWidget *widget = m_widgets.at(input.number<quint16>() % m_widgets.size());
    judge(widget != nullptr, "the widgets of the windows stay");
    return widget->isEnabled() ? widget : nullptr;
}

/// A widget, and the value that it is given.
void Session::act(Input &input)
{
    QWidget *widget = chosenWidget(input);
    const auto value = input.number<qint32>();
    const int index = value & 0x7FFFFFFF;
    if (auto *list = qobject_cast<QComboBox *>(widget)) {
        if (list->count() == 0)
            return;
        list->setCurrentIndex(index % list->count());
        emit list->activated(list->currentIndex());
        QMetaObject::invokeMethod(list, "activated", Q_ARG(QString, list->currentText()));
    } else if (auto *number = qobject_cast<QSpinBox *>(widget)) {
        number->setValue(value);
    } else if (auto *decimal = qobject_cast<QDoubleSpinBox *>(widget)) {
        decimal->setValue(value / 1000.0);
    } else if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
        button->click();
    } else if (auto *slider = qobject_cast<QSlider *>(widget)) {
        slider->setValue(value);
    } else if (auto *tabs = qobject_cast<QTabWidget *>(widget)) {
        tabs->setCurrentIndex(index % tabs->count());
    } else if (auto *rows = qobject_cast<QListWidget *>(widget)) {
        rows->setCurrentRow(index % rows->count());
    } else if (auto *table = qobject_cast<QTableWidget *>(widget)) {
        editCell(table, index & 0xFF, QString::number(value));
    }
}

/// A widget and a text, in Latin-1, with its size; for a table its cell before them.
void Session::type(Input &input)
{
    QWidget *widget = chosenWidget(input);
    const auto cell = input.number<quint8>();
    const QString text = QString::fromLatin1(input.bytes(input.number<quint8>() % 24));
    if (auto *table = qobject_cast<QTableWidget *>(widget)) {
        editCell(table, cell, text);
        return;
    }
    for (const QChar c : text) {
        if (!widget)
            return;
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &down);
    }
    if (auto *box = qobject_cast<QAbstractSpinBox *>(widget))
        box->interpretText();
}

/// A widget, and a key or a turn of the wheel.
void Session::press(Input &input)
{
    constexpr int keys[] = {Qt::Key_Up,   Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown,
                            Qt::Key_Home, Qt::Key_End,    Qt::Key_Space,  Qt::Key_Return,
                            Qt::Key_Tab,  Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Backspace,
                            Qt::Key_F4,   Qt::Key_A,      Qt::Key_D,      Qt::Key_J};
    QPointer<QWidget> widget = chosenWidget(input);
    const auto what = input.number<quint8>();
    if (!widget)
        return;
    if (what & 0x80) {
        const QPointF at(widget->rect().center());
        QWheelEvent wheel(at, widget->mapToGlobal(at.toPoint()), {}, {0, what & 1 ? 120 : -120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &wheel);
        return;
    }
    const int key = keys[what & 15];
    const QString text =
        key >= Qt::Key_A && key <= Qt::Key_Z ? QString(QChar(key | 0x20)) : QString();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        if (widget)
            QApplication::sendEvent(widget, &event);
    }
}

/// What is not done at a widget: a menu, the line, a file to be chosen, with one byte more each.
void Session::command(Input &input)
{
    const auto what = input.number<quint8>();
    switch (what & 3) {
    case 0:
        m_actions.at((what >> 2) % m_actions.size())->trigger();
        break;
    case 1:
        if (isConnected())
            m_connect->click();
        else
            connectTool();
        break;
    case 2:
        pullOut();
        break;
    default: {
        const QString path = m_folder->filePath(QStringLiteral("record.bin"));
        QFile file(path);
        if (what & 4)
            m_desktop.choose(what & 8 ? m_folder->path() : QString());
        else if (file.open(QIODevice::WriteOnly))
            file.write(configuration::fromInput(what >> 4 & 3, input));
        if (!(what & 4))
            m_desktop.choose(path);
        break;
    }
    }
}

void Session::editCell(QTableWidget *table, int cell, const QString &text)
{
    QTableWidgetItem *item =
        table->item(cell % table->rowCount(), cell / table->rowCount() % table->columnCount());
    if (!item)
        return;
    table->setCurrentItem(item);
    table->editItem(item);
    for (auto *editor : table->viewport()->findChildren<QLineEdit *>()) {
        editor->setText(text);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(editor, &enter);
    }
    Desktop::settle();
}

void Session::connectTool()
{
    m_window->slotNewPortList({m_line->path()});
    m_connect->click();
    m_identityExpected = isConnected();
}

void Session::pullOut()
{
    if (isConnected()) {
        m_burst.clear();
        m_line->hangUp();
        QElapsedTimer time;
        time.start();
        while (isConnected() && time.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        judge(!isConnected(), "a device that is pulled out is noticed");
    }
    m_line = std::make_unique<CameraLine>();
}

/// Lets the tool read what the camera has sent, as long as it is connected.
void Session::deliver()
{
    QByteArray bytes = std::exchange(m_burst, {});
    QElapsedTimer time;
    time.start();
    while (isConnected() && (!bytes.isEmpty() || m_line->hasUnread())) {
        bytes.remove(0, bytes.isEmpty() ? 0 : m_line->write(bytes));
        settle();
        judge(time.elapsed() < 8000, "the tool reads what arrives");
    }
}

/// Works off what a step has left behind.
void Session::settle()
{
    Desktop::settle();
    Desktop::settle();
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    if (QWhatsThis::inWhatsThisMode())
        QWhatsThis::leaveWhatsThisMode();
    judge(QApplication::activeModalWidget() == nullptr, "every modal window was answered");
    if (!m_line)
        return;
    for (const wire::Message &sent : m_line->take())
        if (std::exchange(m_identityExpected, false))
            judge(sent.command == 116, "a connection begins with the question for the identity");
    judge(m_line->isHeld() == isConnected(), "the tool holds the port as long as it says so");
}

/// Whether a frame is heard behind as many bytes of silence, or the tool has closed the port.
bool Session::hearsAgain(int silence)
{
    const int before = m_unknownReplies;
    m_burst = QByteArray(silence, '\0') + wire::frame(0);
    deliver();
    QElapsedTimer time;
    time.start();
    while (isConnected() && m_unknownReplies == before && time.elapsed() < 200)
        settle();
    return !isConnected() || m_unknownReplies != before;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    static auto *session = new Session;
    Input input(bytes, size);
    session->begin(input.number<quint8>() & 3);
    for (int steps = 0; steps < longestSession && !input.atEnd(); ++steps)
        session->step(input);
    session->end();
    return 0;
}
