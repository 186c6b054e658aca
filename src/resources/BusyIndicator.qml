import QtQuick 2.2
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4

BusyIndicator {
    running: status.isbusy

    // The style's own circle is drawn for light windows only.
    style: BusyIndicatorStyle {
        indicator: Item {
            id: circle

            readonly property int dots: 10
            readonly property real dotSize: width * 0.16

            implicitWidth: 48
            implicitHeight: 48
            visible: control.running

            SystemPalette {
                id: colors
            }

            RotationAnimator on rotation {
                running: circle.visible
                from: 0
                to: 360
                duration: 1000
                loops: Animation.Infinite
            }

            Repeater {
                model: circle.dots

                Rectangle {
                    readonly property real angle: 2 * Math.PI * index / circle.dots
                    readonly property real ring: (circle.width - circle.dotSize) / 2

                    x: ring * (1 + Math.cos(angle))
                    y: ring * (1 + Math.sin(angle))
                    width: circle.dotSize
                    height: width
                    radius: width / 2
                    color: colors.windowText
                    opacity: (index + 1) / circle.dots
                }
            }
        }
    }
}
