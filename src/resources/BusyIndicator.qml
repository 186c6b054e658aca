import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4

BusyIndicator {
    running: status.isbusy
}
