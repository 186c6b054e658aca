#include "app/whatsthis.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHash>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

constexpr char context[] = "whatsthis";

struct Row
{
    const char *names; ///< object names, separated by blanks
    const char *text;
};

constexpr Row rows[] = {
    // Head and foot of the main window
    {"cBDevice",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Choose the model here to prepare or to save a configuration without a camera. A "
         "camera that is connected sets it by itself; leave it alone then, for what is written "
         "has the layout of this model.")},
    {"comboBoxPort",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The list stands still while a port is open. A port that it lacks is named at the "
         "start: quorvix-config --port NAME.")},
    {"btConnectDisconnect",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "After connecting, the camera's configuration is read into the form: what was changed "
         "there and neither written nor saved is replaced.")},
    {"btnReadConf",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "What was changed in the form and neither written nor saved is replaced. The overlay, "
         "and on a Blend Zoom the switch mode of the colour map, are not read.")},
    {"pbFactorySettings",
     QT_TRANSLATE_NOOP("whatsthis",
                       "Opens the calibration and reads that of the connected camera.")},

    // Periphery
    {"sb_eso_heating sb_eso_heatcycle sb_eso_shutterinterval sb_eso_opt5",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "A setting of the external shutter on the shutter's own scale: its documentation "
         "tells what suits it. Shown while an external shutter is installed.")},
    {"sb_eso_offset",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The offset is stored in hundredths and cut off, not rounded: 0.57 comes back as "
         "0.56.")},
    {"cbTestmodesTaucore",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "For tests on the ground only. Choose NONE before a flight. Blend Zoom only.")},

    // Trigger/FFC
    {"cbTriggerFrameMode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Switching the gimbal remote control on sets the ongoing stream and locks the field.")},
    {"cbFFCmode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Automatic leaves the time to the infrared camera. The fixed intervals follow the delay "
         "below; they either wait for the end of a recording or interrupt it. An external shutter "
         "sets this to external and locks it.")},
    {"sbFFCdelay", QT_TRANSLATE_NOOP("whatsthis", "Locked while the FFC mode is automatic.")},
    {"pbTriggerStart pbTriggerStop pb_ffc_doffc pbGPSStartStream pbGPSStopStream",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Acts on the connected camera at once and changes no setting. Nothing happens without a "
         "connection.")},

    // GPS/Serial
    {"cbBaudrate cbParity cbStopBit cbInverted",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "These four settings have to be those of the hardware at the camera's serial port. A "
         "receiver chosen under Periphery > GPS sets and locks them. Custom settings unlock them, "
         "and so does switching on the gimbal remote control of a Blend Zoom.")},

    // SBUS/PPM
    {"cbSbusColormap cbSbusFFC cbSbusIsotherms cbSbusIsoTransparency cbSbusIsoLow cbSbusIsoMid "
     "cbSbusIsoUp cbSbusViewmode cbSbusZoom",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The channel test shows which channel a stick or a switch of the remote control moves. "
         "The trigger modes SBUS and PPM unlock the channels; the gimbal remote control presets "
         "them.")},
    {"cbSbusOverlay",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Choosing SBUS or PPM as trigger mode of a Blend deactivates this channel and locks it "
         "until the program ends.")},
    {"cbSbusTrigger",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The two thresholds belong to this channel: they are read from its place in the "
         "camera's table of thresholds. A write puts them into every place.")},
    {"cbSbusColorMapSwitchMode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Read back from a Blend, but not from a Blend Zoom: set it before each write to a Blend "
         "Zoom.")},

    // Extensions
    {"cBext0mode cBext1mode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "An external shutter (Periphery) occupies both ports and locks the lists. Choices that "
         "the model lacks are not offered.")},

    // Video
    {"cBOverlayMode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The overlay is written to the camera, but never read back: set it before each write. "
         "Switching the gimbal remote control on turns it off and locks it.")},
    {"cbIsothermsTransparency",
     QT_TRANSLATE_NOOP("whatsthis", "Locked, and off, while the isotherms are off.")},
    {"sbIsothermsLower sbIsothermsMiddle sbIsothermsUpper",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Isotherms use all three thresholds, min / max the lower and the upper one, automatic "
         "isotherms none. Those that are not used are locked.")},
    {"cbIsothermSwitchMode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Switching the gimbal remote control on sets this to absolute values, switching it off "
         "to high/low.")},
    {"cbHDMIVideoMode",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "After a change the settings preview is locked until the next connection, for the camera "
         "has to be switched off and on. Changing to 60 Hz hides the JPEG quality and sets it to "
         "75 %.")},
    {"sb_iradj_offset sb_iradj_factor pb_iradj_send",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Offset and factor are sent together by the button. They belong to no configuration: "
         "neither reading nor saving keeps them.")},

    // Visible Light Camera
    {"sbTamronZoom hsTamronfocusvalue",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "One second after a change the whole form is sent to the connected camera as live "
         "settings, without being stored. It is not sent if the main window sent another command "
         "within the two seconds before: if the camera does not follow, Settings-Preview sends "
         "the form.")},
    {"cb_vlc_ae_mode",
     QT_TRANSLATE_NOOP("whatsthis", "The shutter speed is shown with shutter priority only.")},
    {"cbVLCTamronFocus",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Manual unlocks the focus position, automatic locks it, and once after zoom leaves it as "
         "it is.")},
    {"sbVLCFocusAdjustment",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Auto adjust focus fills in what the camera has found. It is stored by writing the "
         "settings.")},
    {"pbVLCAutoAdjustFocus",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The camera tells the adjustment that it has found, and the field above shows it. Write "
         "the settings to store it.")},

    // Factory settings
    {"tw_QXBZ_analog tw_QXBZ_ardview",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "Derived from the HDMI table by a button below. What is edited by hand here is lost when "
         "it is derived again.")},
    {"btnCalcADFromHDMI btnCalcAVFromHDMI",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "All columns are computed anew, but for those whose E in the HDMI table is 0. Nothing is "
         "sent.")},
    {"pbGetFactorySettings pb_ReadFile",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "For a Blend Zoom you are asked before the tables are replaced; the serial number is "
         "taken over at once. Files are for the Blend Zoom only.")},
    {"pbSetFactorySettings",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The whole calibration of the unit is replaced. Keep a copy before you change it; the "
         "buttons for files do so for a Blend Zoom.")},
    {"pb_WriteFile",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The data file (.dat) can be read again, the report (.txt) is for reading and printing. "
         "For the Blend Zoom only.")},

    // Live displacement editor
    {"pbGetHDMI pbGetAnaloge pbSetHDMI pbSetAnaloge",
     QT_TRANSLATE_NOOP(
         "whatsthis",
         "The column of the factory settings is that of the zoom factor which is selected in the "
         "main window, tab Visible Light Camera.")},
};

bool isInput(const QWidget *widget)
{
    return qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QAbstractSlider *>(widget) ||
           qobject_cast<const QLineEdit *>(widget) ||
           qobject_cast<const QPlainTextEdit *>(widget) ||
           qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QAbstractItemView *>(widget);
}

template <class Visit>
void forEachName(Visit visit)
{
    for (const Row &row : rows) {
        const QStringList names = QString::fromLatin1(row.names).split(QLatin1Char(' '));
        for (const QString &name : names)
            visit(name, row.text);
    }
}

} // namespace

void whatsthis::complete(QWidget *window)
{
    QHash<QString, const char *> texts;
    forEachName([&](const QString &name, const char *text) { texts.insert(name, text); });
    const auto widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (!isInput(widget) || !widget->whatsThis().isEmpty())
            continue;
        const char *text = texts.value(widget->objectName());
        widget->setWhatsThis(text ? QCoreApplication::translate(context, text) : widget->toolTip());
    }
}

QStringList whatsthis::names()
{
    QStringList names;
    forEachName([&](const QString &name, const char *) { names << name; });
    return names;
}
