#include "factory/LiveEdit.h"

#include "diagnostics/diagnostics.h"
#include "forms/inputs.h"
#include "records/FactorySettingsRecords.h"
#include "ui_LiveEdit.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace {

enum Tab { TabHdmi = 0, TabAnalog = 1 };

/// What a key does: a step of one of the values, by its place in A to G.
struct KeyStep
{
    QLatin1String key;
    int value;
    int step;
};

constexpr int A = 0, B = 1, C = 2, D = 3, E = 4, F = 5, G = 6;

const std::array<KeyStep, 8> keySteps = {{
    {QLatin1String("a"), A, -1},
    {QLatin1String("d"), A, +1},
    {QLatin1String("w"), B, -1},
    {QLatin1String("s"), B, +1},
    {QLatin1String("j"), F, +1},
    {QLatin1String("l"), F, -1},
    {QLatin1String("i"), G, +1},
    {QLatin1String("k"), G, -1},
}};

const KeyStep *keyStep(const QKeyEvent *event)
{
    const QString text = event->text();
    const auto found = std::find_if(keySteps.begin(), keySteps.end(),
                                    [&](const KeyStep &row) { return text == row.key; });
    return found != keySteps.end() ? &*found : nullptr;
}

int16_t low16(int value)
{
    return static_cast<int16_t>(value);
}

} // namespace

LiveEdit::LiveEdit(QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::LiveEdit>())
    , m_scale()
    , m_fieldOfViewH()
    , m_timer(new QTimer(this))
{
    setLocale(inputs::locale());
    m_ui->setupUi(this);
    inputs::guardAll(this);
    m_scale.box = m_ui->dsbScaleIntuitiv;
    m_fieldOfViewH.box = m_ui->dsbRGBFOVH;
    QListWidget *list = m_ui->lwFocalLengths;
    list->setFixedHeight(list->count() * list->sizeHintForRow(0) + 2 * list->frameWidth());
    // Number boxes and the list would swallow the steering keys.
    const auto children = findChildren<QWidget *>();
    for (QWidget *child : children)
        if (qobject_cast<QAbstractSpinBox *>(child) || child == list)
            child->installEventFilter(this);
}

LiveEdit::~LiveEdit() = default;

void LiveEdit::setPacketManager(kovoPacketManager *packetManager)
{
    m_packetManager = packetManager;
}

void LiveEdit::setDevices(KovoDevices *devices)
{
    m_devices = devices;
}

void LiveEdit::connectDevice(bool connected)
{
    setEnabled(connected);
}

int LiveEdit::Value::sum() const
{
    return box->value() + (share != nullptr ? share->value() : 0);
}

void LiveEdit::Value::setSum(int sum) const
{
    box->setValue(share != nullptr ? sum - share->value() : sum);
    if (share != nullptr) // takes what is beyond the range of the operator's share
        share->setValue(sum - box->value());
}

LiveEdit::Output LiveEdit::hdmi() const
{
    return {{
        {m_ui->sbFpgaA},
        {m_ui->sbFpgaB},
        {m_ui->sbFpgaC, m_ui->sbFpgaC_1},
        {m_ui->sbFpgaD, m_ui->sbFpgaD_1},
        {m_ui->sbFpgaE},
        {m_ui->sbFpgaF, m_ui->sbFpgaF_1},
        {m_ui->sbFpgaG, m_ui->sbFpgaG_1},
    }};
}

LiveEdit::Output LiveEdit::analog() const
{
    return {{
        {m_ui->sbFpga_Analog_A},
        {m_ui->sbFpga_Analog_B},
        {m_ui->sbFpga_Analog_C, m_ui->sbFpga_Analog_C_1},
        {m_ui->sbFpga_Analog_D, m_ui->sbFpga_Analog_D_1},
        {m_ui->sbFpga_Analog_E},
        {m_ui->sbFpga_Analog_F, m_ui->sbFpga_Analog_F_1},
        {m_ui->sbFpga_Analog_G, m_ui->sbFpga_Analog_G_1},
    }};
}

void LiveEdit::send(const Output &output, ComioInterfaceCommand_TypeDef command)
{
    if (m_blocked)
        return;
    while (m_timer->isActive())
        QThread::msleep(100);
    QTimer::singleShot(100, this, &LiveEdit::slotTimer);

    FpgaDisplacement payload;
    for (size_t i = 0; i < output.size(); ++i)
        payload[i] = low16(output[i].sum());
    QByteArray frame;
    m_packetManager->prepareMessage(payload.data(), sizeof(payload), 1, 1, command, frame);
    emit signalSendPackage(frame);
}

void LiveEdit::send_hdmi()
{
    send(hdmi(), COMIO_CMD_SET_DISPLACEMENT_HDMI);
}

void LiveEdit::send_analog()
{
    send(analog(), COMIO_CMD_SET_DISPLACEMENT_ANALOG);
}

void LiveEdit::slotTimer()
{
    ++m_timerCalls;
}

void LiveEdit::on_sbFpgaA_valueChanged(int /*value*/)
{
    send_hdmi();
}

void LiveEdit::on_sbFpgaB_valueChanged(int /*value*/)
{
    send_hdmi();
}

void LiveEdit::on_sbFpgaF_valueChanged(int /*value*/)
{
    send_hdmi();
}

void LiveEdit::on_sbFpgaG_valueChanged(int /*value*/)
{
    send_hdmi();
}

void LiveEdit::on_pbFpgaDispl_HDMI_clicked()
{
    send_hdmi();
}

void LiveEdit::on_sbFpga_Analog_A_valueChanged(int /*value*/)
{
    send_analog();
}

void LiveEdit::on_sbFpga_Analog_B_valueChanged(int /*value*/)
{
    send_analog();
}

void LiveEdit::on_sbFpga_Analog_F_valueChanged(int /*value*/)
{
    send_analog();
}

void LiveEdit::on_sbFpga_Analog_G_valueChanged(int /*value*/)
{
    send_analog();
}

void LiveEdit::on_pbFpgaDispl_Analog_clicked()
{
    diagnostics::out(QStringLiteral("testWindow::on_pbFpgaDispl_Analog_clicked()"));
    send_analog();
}

void LiveEdit::showShares(const Output &output, const overlay::Shares &shares, const char *function)
{
    const auto showCrop = [&](int value, char letter, std::optional<int> share) {
        if (share)
            output[size_t(value)].share->setValue(*share);
        else
            diagnostics::err(
                QStringLiteral("LiveEdit::%1() E is 0: calculated share of %2 left unchanged")
                    .arg(QLatin1String(function))
                    .arg(QLatin1Char(letter)));
    };
    output[C].share->setValue(shares.c);
    showCrop(F, 'F', shares.f);
    output[D].share->setValue(shares.d);
    showCrop(G, 'G', shares.g);
}

void LiveEdit::on_sbFpgaE_valueChanged(int scale)
{
    showShares(hdmi(),
               overlay::hdmiShares({scale, m_ui->sbFpgaA->value(), m_ui->sbFpgaB->value(),
                                    m_ui->sbRGBResX_HDMI->value(), m_ui->sbRGBResY_HDMI->value()}),
               "on_sbFpgaE_valueChanged");
    m_ui->sbFpga_Analog_E->setValue(scale / 2);
    send_hdmi();
}

void LiveEdit::on_sbFpga_Analog_E_valueChanged(int scale)
{
    showShares(analog(),
               overlay::analogShares(
                   {scale, m_ui->sbFpga_Analog_A->value(), m_ui->sbFpga_Analog_B->value(),
                    m_ui->sbRGBResX_Analog->value(), m_ui->sbRGBResY_Analog->value()}),
               "on_sbFpga_Analog_E_valueChanged");
    send_analog();
}

void LiveEdit::on_btnMoveRight_clicked()
{
    if (m_ui->sbIRScaledX->value() < m_ui->sbRGBResX_HDMI->value())
        m_ui->sbFpgaA->setValue(m_ui->sbFpgaA->value() + 1);
}

void LiveEdit::on_pbGetHDMI_clicked()
{
    emit signalGet_FactoryHDMISettings();
}

void LiveEdit::on_pbGetAnaloge_clicked()
{
    m_ui->pbGetAnaloge->setFocus();
    emit signalGet_FactoryAnalogeSettings();
}

void LiveEdit::on_pbSetHDMI_clicked()
{
    const Output values = hdmi();
    emit signalSet_FactoryHDMISettings(
        low16(values[A].sum() - m_ui->sbDisparityShift_A->value()), low16(values[B].sum()),
        low16(values[C].sum()), low16(values[D].sum()), low16(values[E].sum()),
        low16(values[F].sum() + m_ui->sbDisparityShift_F->value()), low16(values[G].sum()));
}

void LiveEdit::on_pbSetAnaloge_clicked()
{
    const Output values = analog();
    emit signalSet_FactoryAnalogeSettings(low16(values[A].sum()), low16(values[B].sum()),
                                          low16(values[C].sum()), low16(values[D].sum()),
                                          low16(values[E].sum()), low16(values[F].sum()),
                                          low16(values[G].sum()));
}

void LiveEdit::load(const Output &output, const std::array<int16_t, 7> &values)
{
    // A, B and E first: a new E derives the shares that the others take the rest of.
    for (const int i : {A, B, E, C, D, F, G})
        output[size_t(i)].setSum(values[size_t(i)]);
}

void LiveEdit::setDisplacements_HDMI(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e,
                                     int16_t f, int16_t g, int16_t zoom)
{
    const QScopedValueRollback<bool> blocked(m_blocked, true);
    load(hdmi(), {a, b, c, d, e, f, g});
    showOptics(zoom);
    m_scale.set(overlay::scaleHDMI256(m_ui->sbFpgaE->value()));
}

void LiveEdit::setDisplacements_Analoge(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e,
                                        int16_t f, int16_t g)
{
    const QScopedValueRollback<bool> blocked(m_blocked, true);
    load(analog(), {a, b, c, d, e, f, g});
}

void LiveEdit::keyPressEvent(QKeyEvent *event)
{
    const KeyStep *row = keyStep(event);
    const int tab = m_ui->tabWidget->currentIndex();
    if (row == nullptr || (tab != TabHdmi && tab != TabAnalog))
        return;
    const Output output = tab == TabHdmi ? hdmi() : analog();
    QSpinBox *box = output[size_t(row->value)].box;
    box->setValue(box->value() + row->step);
}

bool LiveEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (keyStep(key) != nullptr) {
            keyPressEvent(key);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
