<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>FactorySettings</name>
    <message>
        <source>Factory Settings</source>
        <translation>Werkseinstellungen</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>The number is stored in the camera with Write to Device. Write to File names the data file (.dat) and the report (.txt) after it.</source>
        <translation>„In Gerät schreiben“ legt die Nummer in der Kamera ab. „In Datei schreiben“ benennt die Datendatei (.dat) und den Bericht (.txt) nach ihr.</translation>
    </message>
    <message>
        <source>Serial number of the unit, up to 7 characters; also names its files</source>
        <translation>Seriennummer des Geräts, bis zu 7 Zeichen; benennt auch seine Dateien</translation>
    </message>
    <message>
        <source>No calibration is shown: connect a Quorvix Blend or Quorvix Blend Zoom.</source>
        <translation>Keine Kalibrierung angezeigt: Verbinden Sie eine Quorvix Blend oder Quorvix Blend Zoom.</translation>
    </message>
    <message>
        <source>HDMI output adjustements</source>
        <translation>Abgleich des HDMI-Ausgangs</translation>
    </message>
    <message>
        <source>A and B place the upper left corner of the infrared picture on the output, C and D are the size that is visible of it, E is its scale in 256ths, and F and G are what is cropped from it. Calibrate this table first; the buttons below derive the other two from it.</source>
        <translation>A und B setzen die linke obere Ecke des Infrarotbilds auf dem Ausgang, C und D sind seine sichtbare Größe, E ist seine Skalierung in 256steln, F und G sind das, was von ihm abgeschnitten wird. Kalibrieren Sie diese Tabelle zuerst; die Schaltflächen darunter leiten die beiden anderen aus ihr ab.</translation>
    </message>
    <message>
        <source>HDMI displacements A to G per zoom position</source>
        <translation>HDMI-Verschiebungen A bis G je Zoomstellung</translation>
    </message>
    <message>
        <source>A, B: position, C, D: visible size (output pixels); E: scale (256 = 1:1); F, G: crop (infrared pixels, 0 = none)
Columns: zoom positions 1 to 10; -32768 to 32767</source>
        <translation>A, B: Lage, C, D: sichtbare Größe (Ausgangspixel); E: Skalierung (256 = 1:1); F, G: Beschnitt (Infrarotpixel, 0 = keiner)
Spalten: Zoomstellungen 1 bis 10; -32768 bis 32767</translation>
    </message>
    <message>
        <source>Analog output adjustements</source>
        <translation>Abgleich des Analogausgangs</translation>
    </message>
    <message>
        <source>Analog displacements A to G per zoom position</source>
        <translation>Analog-Verschiebungen A bis G je Zoomstellung</translation>
    </message>
    <message>
        <source>Ardview Adjustments</source>
        <translation>Ardview-Abgleich</translation>
    </message>
    <message>
        <source>Ardview adjustments per zoom position</source>
        <translation>Ardview-Abgleich je Zoomstellung</translation>
    </message>
    <message>
        <source>Ardview adjustments: X-Shift, Y-Shift in pixels, Scale (256000 / E, no unit)
Columns: zoom positions 1 to 10; 32-bit integers</source>
        <translation>Ardview-Abgleich: X-Shift, Y-Shift (Verschiebung) in Pixeln, Scale (Skalierung, 256000 / E, ohne Einheit)
Spalten: Zoomstellungen 1 bis 10; ganze Zahlen mit 32 Bit</translation>
    </message>
    <message>
        <source>Live View Adjustments</source>
        <translation>Abgleich der Live-Ansicht</translation>
    </message>
    <message>
        <source>Horizontal Adjustment</source>
        <translation>Horizontaler Abgleich</translation>
    </message>
    <message>
        <source>Every change writes the whole factory record to the camera, so that the picture follows while you turn the box.</source>
        <translation>Jede Änderung schreibt den ganzen Werksdatensatz in die Kamera, sodass das Bild folgt, während Sie am Feld drehen.</translation>
    </message>
    <message>
        <source>Live-view horizontal adjustment, output pixels, 0 to 99; every change is written to the camera</source>
        <translation>Horizontaler Abgleich der Live-Ansicht, Ausgangspixel, 0 bis 99; jede Änderung wird in die Kamera geschrieben</translation>
    </message>
    <message>
        <source>Live View Horizontal Adjustment</source>
        <translation>Live-Ansicht, horizontaler Abgleich</translation>
    </message>
    <message>
        <source>Vertical Adjustement</source>
        <translation>Vertikaler Abgleich</translation>
    </message>
    <message>
        <source>Live-view vertical adjustment, output lines, 0 to 99; every change is written to the camera</source>
        <translation>Vertikaler Abgleich der Live-Ansicht, Ausgangszeilen, 0 bis 99; jede Änderung wird in die Kamera geschrieben</translation>
    </message>
    <message>
        <source>Live View Vertical Adjustement</source>
        <translation>Live-Ansicht, vertikaler Abgleich</translation>
    </message>
    <message>
        <source>Ardview horizontal adjustment, pixels, -99 to 99</source>
        <translation>Horizontaler Ardview-Abgleich, Pixel, -99 bis 99</translation>
    </message>
    <message>
        <source>Ardview Horizontal Adjustment</source>
        <translation>Ardview, horizontaler Abgleich</translation>
    </message>
    <message>
        <source>Ardview vertical adjustment, pixels, -99 to 99</source>
        <translation>Vertikaler Ardview-Abgleich, Pixel, -99 bis 99</translation>
    </message>
    <message>
        <source>Ardview Vertical Adjustement</source>
        <translation>Ardview, vertikaler Abgleich</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Ardview scale, 1 to 999, no unit</source>
        <translation>Ardview-Skalierung, 1 bis 999, ohne Einheit</translation>
    </message>
    <message>
        <source>Ardview Scale</source>
        <translation>Ardview-Skalierung</translation>
    </message>
    <message>
        <source>Read from Device</source>
        <translation>Aus Gerät lesen</translation>
    </message>
    <message>
        <source>Read the factory record of the connected camera</source>
        <translation>Den Werksdatensatz der verbundenen Kamera lesen</translation>
    </message>
    <message>
        <source>Write to Device</source>
        <translation>In Gerät schreiben</translation>
    </message>
    <message>
        <source>Write the values shown into the camera</source>
        <translation>Die angezeigten Werte in die Kamera schreiben</translation>
    </message>
    <message>
        <source>Write to File</source>
        <translation>In Datei schreiben</translation>
    </message>
    <message>
        <source>Store the data file and the report, named after the serial number, in a folder</source>
        <translation>Die Datendatei und den Bericht, benannt nach der Seriennummer, in einem Ordner ablegen</translation>
    </message>
    <message>
        <source>Read from File</source>
        <translation>Aus Datei lesen</translation>
    </message>
    <message>
        <source>Load a data file into the tables</source>
        <translation>Eine Datendatei in die Tabellen laden</translation>
    </message>
    <message>
        <source>Calc AD from HDMI</source>
        <translation>AD aus HDMI berechnen</translation>
    </message>
    <message>
        <source>Derive the Ardview table from the HDMI table</source>
        <translation>Die Ardview-Tabelle aus der HDMI-Tabelle ableiten</translation>
    </message>
    <message>
        <source>Calc AV from HDMI</source>
        <translation>AV aus HDMI berechnen</translation>
    </message>
    <message>
        <source>Derive the analog table from the HDMI table</source>
        <translation>Die Analogtabelle aus der HDMI-Tabelle ableiten</translation>
    </message>
    <message>
        <source>Read Settings?</source>
        <translation>Einstellungen lesen?</translation>
    </message>
    <message>
        <source>&lt;p&gt;Do you want to replace the currect GUI settings?&lt;/p&gt;</source>
        <translation>&lt;p&gt;Möchten Sie die angezeigten Einstellungen ersetzen?&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Data files (*.dat *.DAT)</source>
        <translation>Datendateien (*.dat *.DAT)</translation>
    </message>
    <message>
        <source>HDMI</source>
        <comment>output</comment>
        <translation>HDMI</translation>
    </message>
    <message>
        <source>Analog</source>
        <comment>output</comment>
        <translation>Analog</translation>
    </message>
    <message>
        <source>%1 %2, zoom position %3: %4 becomes %5</source>
        <translation>%1 %2, Zoomstellung %3: aus %4 wird %5</translation>
    </message>
    <message>
        <source>Beyond 16 bits (-32768 to 32767), camera and file get another number:</source>
        <translation>Mehr als 16 Bit (-32768 bis 32767), Kamera und Datei erhalten eine andere Zahl:</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Nothing was saved: the serial number cannot name a file</source>
        <translation>Nichts gespeichert: Die Seriennummer taugt nicht als Dateiname</translation>
    </message>
    <message>
        <source>%1 is left as it is: it may be of another unit, for the serial number was cut. Choose another folder.</source>
        <translation>%1 bleibt, wie sie ist: Sie kann zu einem anderen Gerät gehören, denn die Seriennummer wurde gekürzt. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>%1 is empty: only a Quorvix Blend Zoom is saved</source>
        <translation>%1 ist leer: Nur eine Quorvix Blend Zoom wird gespeichert</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1 lässt sich nicht laden: %2</translation>
    </message>
    <message>
        <source>%1 was not loaded: only a Quorvix Blend Zoom has data files</source>
        <translation>%1 wurde nicht geladen: Nur eine Quorvix Blend Zoom hat Datendateien</translation>
    </message>
    <message>
        <source>Cannot load %1, it holds no valid record: too short, %2 bytes</source>
        <translation>%1 lässt sich nicht laden, sie enthält keinen gültigen Datensatz: zu kurz, %2 Bytes</translation>
    </message>
    <message>
        <source>Loaded %1</source>
        <translation>%1 geladen</translation>
    </message>
    <message>
        <source>Loaded the serial number of %1 only</source>
        <translation>Nur die Seriennummer aus %1 geladen</translation>
    </message>
    <message>
        <source>The unit&apos;s serial number %1 is longer than the field: only what the field shows is written.</source>
        <translation>Die Seriennummer %1 des Geräts ist länger als das Feld: Nur was das Feld zeigt, wird geschrieben.</translation>
    </message>
    <message>
        <source>%1 is not written: %2 may be of another unit, for the serial number was cut. Choose another folder.</source>
        <translation>%1 wird nicht geschrieben: %2 kann zu einem anderen Gerät gehören, denn die Seriennummer wurde gekürzt. Wählen Sie einen anderen Ordner.</translation>
    </message>
</context>
<context>
    <name>KovoDevices</name>
    <message>
        <source>This software tool is outdated.
 Please download a new version of this software at
https://www.quorvix.example/download.</source>
        <translation>Dieses Programm ist veraltet.
 Bitte laden Sie eine neue Version herunter von
https://www.quorvix.example/download.</translation>
    </message>
    <message>
        <source>The device firmware is outdated.
 Please update the device firmware.</source>
        <translation>Die Firmware des Geräts ist veraltet.
 Bitte aktualisieren Sie die Firmware des Geräts.</translation>
    </message>
</context>
<context>
    <name>LiveEdit</name>
    <message>
        <source>Live displacement editor</source>
        <translation>Live-Verschiebungseditor</translation>
    </message>
    <message>
        <source>RGB Sensor Info</source>
        <translation>RGB-Sensor</translation>
    </message>
    <message>
        <source>Width of the visible sensor, millimetres, 0 to 1000</source>
        <translation>Breite des sichtbaren Sensors, Millimeter, 0 bis 1000</translation>
    </message>
    <message>
        <source>Visible sensor width</source>
        <translation>Breite des sichtbaren Sensors</translation>
    </message>
    <message>
        <source>Height of the visible sensor, millimetres, 0 to 1000</source>
        <translation>Höhe des sichtbaren Sensors, Millimeter, 0 bis 1000</translation>
    </message>
    <message>
        <source>Visible sensor height</source>
        <translation>Höhe des sichtbaren Sensors</translation>
    </message>
    <message>
        <source>Width of the HDMI output, pixels, 1 to 1920</source>
        <translation>Breite des HDMI-Ausgangs, Pixel, 1 bis 1920</translation>
    </message>
    <message>
        <source>HDMI width</source>
        <translation>HDMI-Breite</translation>
    </message>
    <message>
        <source>Height of the HDMI output, lines, 1 to 1080</source>
        <translation>Höhe des HDMI-Ausgangs, Zeilen, 1 bis 1080</translation>
    </message>
    <message>
        <source>HDMI height</source>
        <translation>HDMI-Höhe</translation>
    </message>
    <message>
        <source>Width of the analog output, pixels, 1 to 2000</source>
        <translation>Breite des Analogausgangs, Pixel, 1 bis 2000</translation>
    </message>
    <message>
        <source>Analog width</source>
        <translation>Analog-Breite</translation>
    </message>
    <message>
        <source>Height of the analog output, lines, 1 to 2000</source>
        <translation>Höhe des Analogausgangs, Zeilen, 1 bis 2000</translation>
    </message>
    <message>
        <source>Analog height</source>
        <translation>Analog-Höhe</translation>
    </message>
    <message>
        <source>Focal Length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>The marked line is that of the zoom position last fetched from the factory settings; it sets the field of view of the visible camera.</source>
        <translation>Die markierte Zeile ist die der Zoomstellung, die zuletzt aus den Werkseinstellungen geholt wurde; sie bestimmt das Sichtfeld der sichtbaren Kamera.</translation>
    </message>
    <message>
        <source>Focal length of the visible camera at zoom positions 1 to 10, millimetres</source>
        <translation>Brennweite der sichtbaren Kamera bei den Zoomstellungen 1 bis 10, Millimeter</translation>
    </message>
    <message>
        <source>Focal lengths of the visible camera</source>
        <translation>Brennweiten der sichtbaren Kamera</translation>
    </message>
    <message>
        <source>ZoomLevel:</source>
        <translation>Zoomstellung:</translation>
    </message>
    <message>
        <source>Zoom position of the values last fetched, 1 to 10</source>
        <translation>Zoomstellung der zuletzt geholten Werte, 1 bis 10</translation>
    </message>
    <message>
        <source>Zoom position</source>
        <translation>Zoomstellung</translation>
    </message>
    <message>
        <source>IR Sensor Info</source>
        <translation>IR-Sensor</translation>
    </message>
    <message>
        <source>Width of the infrared sensor, millimetres, 0 to 1000</source>
        <translation>Breite des Infrarotsensors, Millimeter, 0 bis 1000</translation>
    </message>
    <message>
        <source>Infrared sensor width</source>
        <translation>Breite des Infrarotsensors</translation>
    </message>
    <message>
        <source>Height of the infrared sensor, millimetres, 0 to 1000</source>
        <translation>Höhe des Infrarotsensors, Millimeter, 0 bis 1000</translation>
    </message>
    <message>
        <source>Infrared sensor height</source>
        <translation>Höhe des Infrarotsensors</translation>
    </message>
    <message>
        <source>Columns of the infrared sensor, 1 to 640</source>
        <translation>Spalten des Infrarotsensors, 1 bis 640</translation>
    </message>
    <message>
        <source>Infrared columns</source>
        <translation>Infrarotspalten</translation>
    </message>
    <message>
        <source>Rows of the infrared sensor, 1 to 512</source>
        <translation>Zeilen des Infrarotsensors, 1 bis 512</translation>
    </message>
    <message>
        <source>Infrared rows</source>
        <translation>Infrarotzeilen</translation>
    </message>
    <message>
        <source>Focal length of the infrared lens, millimetres, 7.5 to 100</source>
        <translation>Brennweite des Infrarotobjektivs, Millimeter, 7,5 bis 100</translation>
    </message>
    <message>
        <source>Infrared focal length</source>
        <translation>Infrarot-Brennweite</translation>
    </message>
    <message>
        <source>Live test</source>
        <translation>Live-Test</translation>
    </message>
    <message>
        <source>The two lenses do not look from the same point, so near targets appear shifted between the two pictures. With the distance of the target and the offset of the lenses, the computation moves the overlay by that shift. Set to GUI takes the shift out again: the factory settings hold the values for far targets.</source>
        <translation>Die beiden Objektive blicken nicht vom selben Punkt aus, deshalb erscheinen nahe Ziele in den beiden Bildern gegeneinander verschoben. Mit der Entfernung des Ziels und dem Abstand der Objektive verschiebt die Berechnung die Überlagerung um diesen Versatz. „An GUI übergeben“ nimmt den Versatz wieder heraus: Die Werkseinstellungen enthalten die Werte für ferne Ziele.</translation>
    </message>
    <message>
        <source>Use Distance</source>
        <translation>Entfernung verwenden</translation>
    </message>
    <message>
        <source>Calc ABCDEFG corrects the parallax of the two lenses for the distance of the target</source>
        <translation>„ABCDEFG berechnen“ gleicht die Parallaxe der beiden Objektive für die Entfernung des Ziels aus</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>Entfernung</translation>
    </message>
    <message>
        <source>Distance to the target, metres, 0 to 99999</source>
        <translation>Entfernung zum Ziel, Meter, 0 bis 99999</translation>
    </message>
    <message>
        <source>Distance to the target</source>
        <translation>Entfernung zum Ziel</translation>
    </message>
    <message>
        <source>Disparity</source>
        <translation>Disparität</translation>
    </message>
    <message>
        <source>Distance between the two lenses, metres, 0 to 10</source>
        <translation>Abstand der beiden Objektive, Meter, 0 bis 10</translation>
    </message>
    <message>
        <source>Disparity of the lenses</source>
        <translation>Disparität der Objektive</translation>
    </message>
    <message>
        <source>Calc ABCDEFG</source>
        <translation>ABCDEFG berechnen</translation>
    </message>
    <message>
        <source>Compute A to G of the HDMI output from the optics and send them</source>
        <translation>A bis G des HDMI-Ausgangs aus der Optik berechnen und senden</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Move the HDMI overlay one pixel to the right while it is narrower than the output</source>
        <translation>Die HDMI-Überlagerung um ein Pixel nach rechts schieben, solange sie schmaler als der Ausgang ist</translation>
    </message>
    <message>
        <source>Calculated Values</source>
        <translation>Berechnete Werte</translation>
    </message>
    <message>
        <source>Horizontal field of view of the visible camera, degrees, 0 to 10000</source>
        <translation>Horizontales Sichtfeld der sichtbaren Kamera, Grad, 0 bis 10000</translation>
    </message>
    <message>
        <source>Visible field of view, horizontal</source>
        <translation>Sichtbares Sichtfeld, horizontal</translation>
    </message>
    <message>
        <source>Vertical field of view of the visible camera, degrees, 0 to 10000</source>
        <translation>Vertikales Sichtfeld der sichtbaren Kamera, Grad, 0 bis 10000</translation>
    </message>
    <message>
        <source>Visible field of view, vertical</source>
        <translation>Sichtbares Sichtfeld, vertikal</translation>
    </message>
    <message>
        <source>Horizontal field of view of the infrared camera, degrees, 0 to 10000</source>
        <translation>Horizontales Sichtfeld der Infrarotkamera, Grad, 0 bis 10000</translation>
    </message>
    <message>
        <source>Infrared field of view, horizontal</source>
        <translation>Infrarot-Sichtfeld, horizontal</translation>
    </message>
    <message>
        <source>Vertical field of view of the infrared camera, degrees, 0 to 10000</source>
        <translation>Vertikales Sichtfeld der Infrarotkamera, Grad, 0 bis 10000</translation>
    </message>
    <message>
        <source>Infrared field of view, vertical</source>
        <translation>Infrarot-Sichtfeld, vertikal</translation>
    </message>
    <message>
        <source>Vertical field of view, infrared over visible, no unit; scales the infrared picture</source>
        <translation>Vertikales Sichtfeld, Infrarot durch sichtbar, ohne Einheit; skaliert das Infrarotbild</translation>
    </message>
    <message>
        <source>Infrared over visible field of view</source>
        <translation>Infrarot-Sichtfeld durch sichtbares</translation>
    </message>
    <message>
        <source>Width of the scaled infrared picture, HDMI pixels, 0 to 50000</source>
        <translation>Breite des skalierten Infrarotbilds, HDMI-Pixel, 0 bis 50000</translation>
    </message>
    <message>
        <source>Scaled infrared width</source>
        <translation>Skalierte Infrarotbreite</translation>
    </message>
    <message>
        <source>Height of the scaled infrared picture, HDMI lines, 0 to 50000</source>
        <translation>Höhe des skalierten Infrarotbilds, HDMI-Zeilen, 0 bis 50000</translation>
    </message>
    <message>
        <source>Scaled infrared height</source>
        <translation>Skalierte Infrarothöhe</translation>
    </message>
    <message>
        <source>Scale Intuitiv</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Scale of the infrared picture, 1 means 1:1, 0 to 50000</source>
        <translation>Skalierung des Infrarotbilds, 1 bedeutet 1:1, 0 bis 50000</translation>
    </message>
    <message>
        <source>Scale factor</source>
        <translation>Skalierungsfaktor</translation>
    </message>
    <message>
        <source>Width of the scene at the distance of the target, metres</source>
        <translation>Breite der Szene in der Entfernung des Ziels, Meter</translation>
    </message>
    <message>
        <source>Scene width</source>
        <translation>Szenenbreite</translation>
    </message>
    <message>
        <source>Pixel/Centimeter</source>
        <translation>Pixel/Zentimeter</translation>
    </message>
    <message>
        <source>HDMI pixels per centimetre of the scene, -1000 to 1000</source>
        <translation>HDMI-Pixel je Zentimeter der Szene, -1000 bis 1000</translation>
    </message>
    <message>
        <source>Pixels per centimetre</source>
        <translation>Pixel je Zentimeter</translation>
    </message>
    <message>
        <source>Disparity Shift_A</source>
        <translation>Disparitätsversatz_A</translation>
    </message>
    <message>
        <source>Shift by the lens offset contained in A, HDMI pixels, -10000 to 10000</source>
        <translation>In A enthaltener Versatz durch den Objektivabstand, HDMI-Pixel, -10000 bis 10000</translation>
    </message>
    <message>
        <source>Disparity shift of A</source>
        <translation>Disparitätsversatz von A</translation>
    </message>
    <message>
        <source>Disparity Shift_F</source>
        <translation>Disparitätsversatz_F</translation>
    </message>
    <message>
        <source>Shift by the lens offset taken from F, infrared pixels</source>
        <translation>Von F abgezogener Versatz durch den Objektivabstand, Infrarotpixel</translation>
    </message>
    <message>
        <source>Disparity shift of F</source>
        <translation>Disparitätsversatz von F</translation>
    </message>
    <message>
        <source>FPGA HDMI Values</source>
        <translation>FPGA-HDMI-Werte</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Bediener</translation>
    </message>
    <message>
        <source>Calculated</source>
        <translation>Berechnet</translation>
    </message>
    <message>
        <source>A: horizontal position, output pixels, 0 to 1000; every change is sent at once</source>
        <translation>A: horizontale Lage, Ausgangspixel, 0 bis 1000; jede Änderung wird sofort gesendet</translation>
    </message>
    <message>
        <source>HDMI A</source>
        <translation>HDMI A</translation>
    </message>
    <message>
        <source>B: vertical position, output lines, 0 to 1000; every change is sent at once</source>
        <translation>B: vertikale Lage, Ausgangszeilen, 0 bis 1000; jede Änderung wird sofort gesendet</translation>
    </message>
    <message>
        <source>HDMI B</source>
        <translation>HDMI B</translation>
    </message>
    <message>
        <source>C: visible width, output pixels, share of the operator, -100 to 1920; goes out with the next send</source>
        <translation>C: sichtbare Breite, Ausgangspixel, Anteil des Bedieners, -100 bis 1920; geht mit dem nächsten Senden hinaus</translation>
    </message>
    <message>
        <source>HDMI C, share of the operator</source>
        <translation>HDMI C, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>C: visible width, output pixels, calculated share, -9999 to 9999; the sum of both is sent</source>
        <translation>C: sichtbare Breite, Ausgangspixel, berechneter Anteil, -9999 bis 9999; gesendet wird die Summe beider</translation>
    </message>
    <message>
        <source>HDMI C, calculated share</source>
        <translation>HDMI C, berechneter Anteil</translation>
    </message>
    <message>
        <source>D: visible height, output lines, share of the operator, -100 to 1080; goes out with the next send</source>
        <translation>D: sichtbare Höhe, Ausgangszeilen, Anteil des Bedieners, -100 bis 1080; geht mit dem nächsten Senden hinaus</translation>
    </message>
    <message>
        <source>HDMI D, share of the operator</source>
        <translation>HDMI D, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>D: visible height, output lines, calculated share, -9999 to 9999; the sum of both is sent</source>
        <translation>D: sichtbare Höhe, Ausgangszeilen, berechneter Anteil, -9999 bis 9999; gesendet wird die Summe beider</translation>
    </message>
    <message>
        <source>HDMI D, calculated share</source>
        <translation>HDMI D, berechneter Anteil</translation>
    </message>
    <message>
        <source>A new scale also computes the calculated shares of C, D, F and G, and sets half of the scale on the analog tab.</source>
        <translation>Eine neue Skalierung berechnet auch die berechneten Anteile von C, D, F und G und setzt die halbe Skalierung auf der Registerkarte des Analogvideos.</translation>
    </message>
    <message>
        <source>E: scale, 256 means 1:1, 0 to 99999; every change is sent at once</source>
        <translation>E: Skalierung, 256 bedeutet 1:1, 0 bis 99999; jede Änderung wird sofort gesendet</translation>
    </message>
    <message>
        <source>HDMI E</source>
        <translation>HDMI E</translation>
    </message>
    <message>
        <source>F: horizontal crop, infrared pixels, share of the operator, -1000 to 1000; every change is sent at once</source>
        <translation>F: horizontaler Beschnitt, Infrarotpixel, Anteil des Bedieners, -1000 bis 1000; jede Änderung wird sofort gesendet</translation>
    </message>
    <message>
        <source>HDMI F, share of the operator</source>
        <translation>HDMI F, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>F: horizontal crop, infrared pixels, calculated share, -9999 to 9999; the sum of both is sent</source>
        <translation>F: horizontaler Beschnitt, Infrarotpixel, berechneter Anteil, -9999 bis 9999; gesendet wird die Summe beider</translation>
    </message>
    <message>
        <source>HDMI F, calculated share</source>
        <translation>HDMI F, berechneter Anteil</translation>
    </message>
    <message>
        <source>G: vertical crop, infrared pixels, share of the operator, -1000 to 1000; every change is sent at once</source>
        <translation>G: vertikaler Beschnitt, Infrarotpixel, Anteil des Bedieners, -1000 bis 1000; jede Änderung wird sofort gesendet</translation>
    </message>
    <message>
        <source>HDMI G, share of the operator</source>
        <translation>HDMI G, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>G: vertical crop, infrared pixels, calculated share, -9999 to 9999; the sum of both is sent</source>
        <translation>G: vertikaler Beschnitt, Infrarotpixel, berechneter Anteil, -9999 bis 9999; gesendet wird die Summe beider</translation>
    </message>
    <message>
        <source>HDMI G, calculated share</source>
        <translation>HDMI G, berechneter Anteil</translation>
    </message>
    <message>
        <source>Send FPGA HDMI Displacement</source>
        <translation>FPGA-HDMI-Verschiebung senden</translation>
    </message>
    <message>
        <source>Send A to G of the HDMI output to the camera</source>
        <translation>A bis G des HDMI-Ausgangs an die Kamera senden</translation>
    </message>
    <message>
        <source>Get from GUI</source>
        <translation>Aus GUI holen</translation>
    </message>
    <message>
        <source>Set to GUI</source>
        <translation>An GUI übergeben</translation>
    </message>
    <message>
        <source>Analog Video</source>
        <translation>Analogvideo</translation>
    </message>
    <message>
        <source>FPGA displacement Analog Video</source>
        <translation>FPGA-Verschiebung Analogvideo</translation>
    </message>
    <message>
        <source>Analog A</source>
        <translation>Analog A</translation>
    </message>
    <message>
        <source>Analog B</source>
        <translation>Analog B</translation>
    </message>
    <message>
        <source>Analog C, share of the operator</source>
        <translation>Analog C, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>Analog C, calculated share</source>
        <translation>Analog C, berechneter Anteil</translation>
    </message>
    <message>
        <source>Analog D, share of the operator</source>
        <translation>Analog D, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>Analog D, calculated share</source>
        <translation>Analog D, berechneter Anteil</translation>
    </message>
    <message>
        <source>Analog E</source>
        <translation>Analog E</translation>
    </message>
    <message>
        <source>Analog F, share of the operator</source>
        <translation>Analog F, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>Analog F, calculated share</source>
        <translation>Analog F, berechneter Anteil</translation>
    </message>
    <message>
        <source>Analog G, share of the operator</source>
        <translation>Analog G, Anteil des Bedieners</translation>
    </message>
    <message>
        <source>Analog G, calculated share</source>
        <translation>Analog G, berechneter Anteil</translation>
    </message>
    <message>
        <source>Send FPGA Analog Displacement</source>
        <translation>FPGA-Analog-Verschiebung senden</translation>
    </message>
    <message>
        <source>Send A to G of the analog output to the camera</source>
        <translation>A bis G des Analogausgangs an die Kamera senden</translation>
    </message>
    <message>
        <source>Keys: a / d move left / right (A)   •   w / s move up / down (B)   •   j / l crop more / less (F)   •   i / k crop more / less (G)</source>
        <translation>Tasten: a / d nach links / rechts (A)   •   w / s nach oben / unten (B)   •   j / l mehr / weniger Beschnitt (F)   •   i / k mehr / weniger Beschnitt (G)</translation>
    </message>
    <message>
        <source>Fetch the HDMI values of the main window&apos;s zoom factor from the factory settings</source>
        <translation>Die HDMI-Werte des Zoomfaktors im Hauptfenster aus den Werkseinstellungen holen</translation>
    </message>
    <message>
        <source>Put the HDMI values, without the shift by distance, into the factory settings of the main window&apos;s zoom factor</source>
        <translation>Die HDMI-Werte ohne den Versatz durch die Entfernung in die Werkseinstellungen für den Zoomfaktor im Hauptfenster eintragen</translation>
    </message>
    <message>
        <source>Fetch the analog values of the main window&apos;s zoom factor from the factory settings</source>
        <translation>Die analogen Werte des Zoomfaktors im Hauptfenster aus den Werkseinstellungen holen</translation>
    </message>
    <message>
        <source>Put the analog values into the factory settings of the main window&apos;s zoom factor</source>
        <translation>Die analogen Werte in die Werkseinstellungen für den Zoomfaktor im Hauptfenster eintragen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Quorvix - Configuration - 2.19</source>
        <translation>Quorvix - Konfiguration - 2.19</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Gerät:</translation>
    </message>
    <message>
        <source>Camera model that the form is laid out for; follows the connected camera</source>
        <translation>Kameramodell, für das das Formular eingerichtet ist; folgt der verbundenen Kamera</translation>
    </message>
    <message>
        <source>Busy indicator</source>
        <translation>Aktivitätsanzeige</translation>
    </message>
    <message>
        <source>Turns while the camera has not answered yet</source>
        <translation>Dreht sich, solange die Kamera noch nicht geantwortet hat</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Serielle Schnittstelle</translation>
    </message>
    <message>
        <source>Serial port that the camera is plugged into; the list follows plugging in and out</source>
        <translation>Serielle Schnittstelle, an der die Kamera steckt; die Liste folgt dem Ein- und Ausstecken</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Opens or closes the serial port (Ctrl+K)</source>
        <translation>Öffnet oder schließt die serielle Schnittstelle (Strg+K)</translation>
    </message>
    <message>
        <source>Periphery</source>
        <translation>Peripherie</translation>
    </message>
    <message>
        <source>Optional Pheriphery</source>
        <translation>Optionale Peripherie</translation>
    </message>
    <message>
        <source>Gimbal remote control, on or off: when on, it takes over the SBUS channels and the trigger input</source>
        <translation>Gimbal-Fernsteuerung, ein oder aus: eingeschaltet übernimmt sie die SBUS-Kanäle und den Triggereingang</translation>
    </message>
    <message>
        <source>GPS receiver at the serial port of the camera, four choices: a receiver sets the serial port of the GPS/Serial tab, custom settings leave it to you</source>
        <translation>GPS-Empfänger an der seriellen Schnittstelle der Kamera, vier Möglichkeiten: Ein Empfänger stellt die Schnittstelle der Registerkarte GPS/Seriell ein, eigene Einstellungen überlassen sie Ihnen</translation>
    </message>
    <message>
        <source>Custom settings</source>
        <translation>Eigene Einstellungen</translation>
    </message>
    <message>
        <source>Quorvix GPS Receiver - based on u-blox 6 SuperSense® chipset</source>
        <translation>Quorvix-GPS-Empfänger - mit u-blox-6-SuperSense®-Chipsatz</translation>
    </message>
    <message>
        <source>Quorvix GPS Receiver - 1Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset</source>
        <translation>Quorvix-GPS-Empfänger - 1 Hz, mit u-blox-8-Multi-GNSS-Chipsatz UBX-M8030-KT</translation>
    </message>
    <message>
        <source>Quorvix GPS Receiver - 10Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset</source>
        <translation>Quorvix-GPS-Empfänger - 10 Hz, mit u-blox-8-Multi-GNSS-Chipsatz UBX-M8030-KT</translation>
    </message>
    <message>
        <source>External Shutter</source>
        <translation>Externer Shutter</translation>
    </message>
    <message>
        <source>&amp;External shutter installed</source>
        <translation>&amp;Externer Shutter eingebaut</translation>
    </message>
    <message>
        <source>External shutter, on or off: when on, it occupies both extension ports and makes the flat-field correction external</source>
        <translation>Externer Shutter, ein oder aus: eingeschaltet belegt er beide Erweiterungsanschlüsse und macht die Flachfeldkorrektur extern</translation>
    </message>
    <message>
        <source>An external shutter is wired to both extension ports: they are set to it and locked. The flat-field correction becomes external and its group is locked. Switching this off sets both ports to none and the flat-field correction to automatic.</source>
        <translation>Ein externer Shutter ist an beide Erweiterungsanschlüsse verdrahtet: Sie werden auf ihn gestellt und gesperrt. Die Flachfeldkorrektur wird extern und ihre Gruppe gesperrt. Beim Ausschalten werden beide Anschlüsse nicht mehr verwendet und die Flachfeldkorrektur wird automatisch.</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Heating</source>
        <translation>Heizung</translation>
    </message>
    <message>
        <source>Heating of the external shutter, 0 to 1000 on the shutter&apos;s own scale</source>
        <translation>Heizung des externen Shutters, 0 bis 1000 auf dessen eigener Skala</translation>
    </message>
    <message>
        <source>Heatcycle</source>
        <translation>Heizzyklus</translation>
    </message>
    <message>
        <source>Heat cycle of the external shutter, 0 to 2000 on the shutter&apos;s own scale</source>
        <translation>Heizzyklus des externen Shutters, 0 bis 2000 auf dessen eigener Skala</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Offset</translation>
    </message>
    <message>
        <source>Offset of the external shutter, -20.00 to 20.00 on the shutter&apos;s own scale, in steps of 0.1; stored in hundredths</source>
        <translation>Offset des externen Shutters, -20,00 bis 20,00 auf dessen eigener Skala, in Schritten von 0,1; gespeichert in Hundertsteln</translation>
    </message>
    <message>
        <source>shutter interval</source>
        <translation>Shutter-Intervall</translation>
    </message>
    <message>
        <source>Interval of the external shutter, 0 to 3600 on the shutter&apos;s own scale</source>
        <translation>Intervall des externen Shutters, 0 bis 3600 auf dessen eigener Skala</translation>
    </message>
    <message>
        <source>opt5</source>
        <translation>Opt. 5</translation>
    </message>
    <message>
        <source>Fifth option of the external shutter, 0 to 99, no unit</source>
        <translation>Fünfte Option des externen Shutters, 0 bis 99, ohne Einheit</translation>
    </message>
    <message>
        <source>Activate Test Modes</source>
        <translation>Testmodi aktivieren</translation>
    </message>
    <message>
        <source>IR camera test mode</source>
        <translation>Testmodus der IR-Kamera</translation>
    </message>
    <message>
        <source>Test mode of the infrared camera, two choices: none for flying</source>
        <translation>Testmodus der Infrarotkamera, zwei Möglichkeiten: zum Fliegen keiner</translation>
    </message>
    <message>
        <source>NONE</source>
        <translation>KEINER</translation>
    </message>
    <message>
        <source>DEVICE NOT INSTALLED</source>
        <translation>GERÄT NICHT EINGEBAUT</translation>
    </message>
    <message>
        <source>Trigger/FFC</source>
        <translation>Trigger/FFC</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Trigger Mode:</source>
        <translation>Triggermodus:</translation>
    </message>
    <message>
        <source>Input that starts and stops the recording, six choices; SBUS and PPM enable the channels of the SBUS/PPM tab</source>
        <translation>Eingang, der die Aufzeichnung startet und stoppt, sechs Möglichkeiten; SBUS und PPM geben die Kanäle der Registerkarte SBUS/PPM frei</translation>
    </message>
    <message>
        <source>ON/OFF reads the trigger input as a switch. SBUS and PPM read the trigger channel of the remote control, with the thresholds of the SBUS/PPM tab. PWM reads the width of the pulses on the input, normal or inverted. Serial input takes the trigger from the serial port.</source>
        <translation>EIN/AUS liest den Triggereingang als Schalter. SBUS und PPM lesen den Triggerkanal der Fernsteuerung mit den Schwellen der Registerkarte SBUS/PPM. PWM liest die Breite der Impulse am Eingang, normal oder invertiert. „Serieller Eingang“ nimmt den Trigger von der seriellen Schnittstelle.</translation>
    </message>
    <message>
        <source>ON/OFF</source>
        <translation>EIN/AUS</translation>
    </message>
    <message>
        <source>Serial input</source>
        <translation>Serieller Eingang</translation>
    </message>
    <message>
        <source>PWM (normal)</source>
        <translation>PWM (normal)</translation>
    </message>
    <message>
        <source>PWM (inverted)</source>
        <translation>PWM (invertiert)</translation>
    </message>
    <message>
        <source>Trigger frame mode </source>
        <translation>Aufnahmeart </translation>
    </message>
    <message>
        <source>What a trigger records: an ongoing stream or a single frame</source>
        <translation>Was ein Trigger aufzeichnet: einen fortlaufenden Strom oder ein Einzelbild</translation>
    </message>
    <message>
        <source>Ongoing stream (default)</source>
        <translation>Fortlaufender Strom (Standard)</translation>
    </message>
    <message>
        <source>Single frame capture</source>
        <translation>Einzelbildaufnahme</translation>
    </message>
    <message>
        <source>Trigger auto FFC:</source>
        <translation>FFC beim Trigger:</translation>
    </message>
    <message>
        <source>Whether each trigger start does a flat-field correction (FFC) in addition</source>
        <translation>Ob jeder Triggerstart zusätzlich eine Flachfeldkorrektur (FFC) ausführt</translation>
    </message>
    <message>
        <source>no additional FFC on trigger start (default)</source>
        <translation>keine zusätzliche FFC beim Triggerstart (Standard)</translation>
    </message>
    <message>
        <source>additional FFC on trigger start</source>
        <translation>zusätzliche FFC beim Triggerstart</translation>
    </message>
    <message>
        <source>Trigger Start</source>
        <translation>Trigger-Start</translation>
    </message>
    <message>
        <source>Triggers the connected camera at once</source>
        <translation>Löst die verbundene Kamera sofort aus</translation>
    </message>
    <message>
        <source>Trigger Stop</source>
        <translation>Trigger-Stopp</translation>
    </message>
    <message>
        <source>Stops the trigger of the connected camera at once</source>
        <translation>Stoppt den Trigger der verbundenen Kamera sofort</translation>
    </message>
    <message>
        <source>Flat-field correction</source>
        <translation>Flachfeldkorrektur</translation>
    </message>
    <message>
        <source>FFC mode</source>
        <translation>FFC-Modus</translation>
    </message>
    <message>
        <source>&lt;p&gt;FFC automatic: Automated shutter intervalls depending on FLIR algorithms.&lt;/p&gt;&lt;p&gt;FFC fixed time intervalls, do not interrupt recordings: Do FFC in defined time intervalls, never interrupts an ongoing recording (FFC is only done if recoding is stopped)&lt;/p&gt;&lt;p&gt;FFC fixed time intervalls, ignore recoding state: Do FFC in defined time intervalls, interrupt recordings if necessary.&lt;/p&gt;</source>
        <translation>&lt;p&gt;FFC automatisch: Automatische Shutter-Intervalle nach FLIR-Algorithmen.&lt;/p&gt;&lt;p&gt;FFC in festen Zeitabständen, Aufzeichnungen nicht unterbrechen: FFC in festgelegten Zeitabständen, unterbricht nie eine laufende Aufzeichnung (FFC nur bei gestoppter Aufzeichnung)&lt;/p&gt;&lt;p&gt;FFC in festen Zeitabständen, ungeachtet der Aufzeichnung: FFC in festgelegten Zeitabständen, unterbricht Aufzeichnungen, wenn nötig.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>FFC Automatic (default)</source>
        <translation>FFC automatisch (Standard)</translation>
    </message>
    <message>
        <source>FFC fixed time intervalls, do not interrupt recordings</source>
        <translation>FFC in festen Zeitabständen, Aufzeichnungen nicht unterbrechen</translation>
    </message>
    <message>
        <source>FFC fixed time intervalls, ignore recoding state</source>
        <translation>FFC in festen Zeitabständen, ungeachtet der Aufzeichnung</translation>
    </message>
    <message>
        <source>FFC External</source>
        <translation>FFC extern</translation>
    </message>
    <message>
        <source>FFC delay time (s)</source>
        <translation>FFC-Abstand (s)</translation>
    </message>
    <message>
        <source>Seconds between two flat-field corrections, 0 to 86400 (one day); for the fixed intervals</source>
        <translation>Sekunden zwischen zwei Flachfeldkorrekturen, 0 bis 86400 (ein Tag); für die festen Zeitabstände</translation>
    </message>
    <message>
        <source>Do FFC</source>
        <translation>FFC ausführen</translation>
    </message>
    <message>
        <source>Makes the connected camera do a flat-field correction at once</source>
        <translation>Lässt die verbundene Kamera sofort eine Flachfeldkorrektur ausführen</translation>
    </message>
    <message>
        <source>GPS/Serial</source>
        <translation>GPS/Seriell</translation>
    </message>
    <message>
        <source>Set &quot;Periphery &gt; GPS&quot; to &quot;Custom settings&quot; to enable configuration.</source>
        <translation>Zum Einstellen „Peripherie &gt; GPS“ auf „Eigene Einstellungen“ stellen.</translation>
    </message>
    <message>
        <source>Settings for interface between Quorvix device and additional hardware:</source>
        <translation>Einstellungen der Schnittstelle zwischen Quorvix-Gerät und zusätzlicher Hardware:</translation>
    </message>
    <message>
        <source>&amp;Baud rate (bit/s)</source>
        <translation>&amp;Baudrate (bit/s)</translation>
    </message>
    <message>
        <source>Speed of the serial port of the camera, 1200 to 921600 bit/s; must be that of the hardware plugged in</source>
        <translation>Geschwindigkeit der seriellen Schnittstelle der Kamera, 1200 bis 921600 bit/s; muss der angeschlossenen Hardware entsprechen</translation>
    </message>
    <message>
        <source>&amp;Parity</source>
        <translation>&amp;Parität</translation>
    </message>
    <message>
        <source>Parity bit of the serial port of the camera: none, odd or even; must be that of the hardware plugged in</source>
        <translation>Paritätsbit der seriellen Schnittstelle der Kamera: keines, ungerade oder gerade; muss der angeschlossenen Hardware entsprechen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>odd</source>
        <translation>ungerade</translation>
    </message>
    <message>
        <source>even</source>
        <translation>gerade</translation>
    </message>
    <message>
        <source>&amp;Stop bits</source>
        <translation>&amp;Stoppbits</translation>
    </message>
    <message>
        <source>Stop bits of the serial port of the camera, 1 or 2; must be those of the hardware plugged in</source>
        <translation>Stoppbits der seriellen Schnittstelle der Kamera, 1 oder 2; müssen der angeschlossenen Hardware entsprechen</translation>
    </message>
    <message>
        <source>Signal &amp;inverted</source>
        <translation>Signal &amp;invertiert</translation>
    </message>
    <message>
        <source>Level of the serial signal, on or off: on for hardware whose signal is inverted</source>
        <translation>Pegel des seriellen Signals, ein oder aus: ein bei Hardware mit invertiertem Signal</translation>
    </message>
    <message>
        <source>Test Serial/GPS data</source>
        <translation>Serielle Daten/GPS-Daten testen</translation>
    </message>
    <message>
        <source>Start data stream</source>
        <translation>Datenstrom starten</translation>
    </message>
    <message>
        <source>Makes the camera pass on what its serial port receives, to be shown below</source>
        <translation>Lässt die Kamera weitergeben, was ihre serielle Schnittstelle empfängt; es erscheint unten</translation>
    </message>
    <message>
        <source>Stop data stream</source>
        <translation>Datenstrom stoppen</translation>
    </message>
    <message>
        <source>Ends the stream of received data</source>
        <translation>Beendet den Strom empfangener Daten</translation>
    </message>
    <message>
        <source>Serial/GPS data</source>
        <translation>Serielle Daten/GPS-Daten</translation>
    </message>
    <message>
        <source>Set &quot;Trigger &gt; Trigger mode&quot; to &quot;SBUS&quot; or &quot;PPM&quot; to enable configuration of channels</source>
        <translation>Zum Einstellen der Kanäle „Trigger &gt; Triggermodus“ auf „SBUS“ oder „PPM“ stellen</translation>
    </message>
    <message>
        <source>Channel assignment</source>
        <translation>Kanalbelegung</translation>
    </message>
    <message>
        <source>&amp;Colour map</source>
        <translation>&amp;Farbpalette</translation>
    </message>
    <message>
        <source>Remote-control channel that changes the colour map: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die Farbpalette wechselt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Channel 1</source>
        <translation>Kanal 1</translation>
    </message>
    <message>
        <source>Channel 2</source>
        <translation>Kanal 2</translation>
    </message>
    <message>
        <source>Channel 3</source>
        <translation>Kanal 3</translation>
    </message>
    <message>
        <source>Channel 4</source>
        <translation>Kanal 4</translation>
    </message>
    <message>
        <source>Channel 5</source>
        <translation>Kanal 5</translation>
    </message>
    <message>
        <source>Channel 6</source>
        <translation>Kanal 6</translation>
    </message>
    <message>
        <source>Channel 7</source>
        <translation>Kanal 7</translation>
    </message>
    <message>
        <source>Channel 8</source>
        <translation>Kanal 8</translation>
    </message>
    <message>
        <source>Channel 9</source>
        <translation>Kanal 9</translation>
    </message>
    <message>
        <source>Channel 10</source>
        <translation>Kanal 10</translation>
    </message>
    <message>
        <source>Channel 11</source>
        <translation>Kanal 11</translation>
    </message>
    <message>
        <source>Channel 12</source>
        <translation>Kanal 12</translation>
    </message>
    <message>
        <source>Channel 13</source>
        <translation>Kanal 13</translation>
    </message>
    <message>
        <source>Channel 14</source>
        <translation>Kanal 14</translation>
    </message>
    <message>
        <source>Channel 15</source>
        <translation>Kanal 15</translation>
    </message>
    <message>
        <source>Channel 16</source>
        <translation>Kanal 16</translation>
    </message>
    <message>
        <source>Channel 17</source>
        <translation>Kanal 17</translation>
    </message>
    <message>
        <source>Channel 18</source>
        <translation>Kanal 18</translation>
    </message>
    <message>
        <source>Deactivated</source>
        <translation>Deaktiviert</translation>
    </message>
    <message>
        <source>&amp;Switch mode</source>
        <translation>&amp;Umschaltart</translation>
    </message>
    <message>
        <source>How the channel selects the colour map: by high and low levels, or by its absolute level</source>
        <translation>Wie der Kanal die Farbpalette wählt: durch hohe und niedrige Pegel oder durch seinen absoluten Pegel</translation>
    </message>
    <message>
        <source>high/low (default)</source>
        <translation>hoch/niedrig (Standard)</translation>
    </message>
    <message>
        <source>absolute</source>
        <translation>absolut</translation>
    </message>
    <message>
        <source>Flat-fie&amp;ld correction</source>
        <translation>Flachfeld&amp;korrektur</translation>
    </message>
    <message>
        <source>Remote-control channel that does a flat-field correction: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der eine Flachfeldkorrektur ausführt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>&amp;Isotherms on/off</source>
        <translation>&amp;Isothermen ein/aus</translation>
    </message>
    <message>
        <source>Remote-control channel that switches the isotherms: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die Isothermen schaltet: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Isotherm tra&amp;nsparency</source>
        <translation>Isothermen-&amp;Transparenz</translation>
    </message>
    <message>
        <source>Remote-control channel that switches the isotherm transparency: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die Transparenz der Isothermen schaltet: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Isotherm lo&amp;wer threshold</source>
        <translation>Unte&amp;re Isothermenschwelle</translation>
    </message>
    <message>
        <source>Remote-control channel that moves the lower isotherm threshold: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die untere Isothermenschwelle verschiebt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Isotherm &amp;middle threshold</source>
        <translation>&amp;Mittlere Isothermenschwelle</translation>
    </message>
    <message>
        <source>Remote-control channel that moves the middle isotherm threshold: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die mittlere Isothermenschwelle verschiebt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Isotherm &amp;upper threshold</source>
        <translation>&amp;Obere Isothermenschwelle</translation>
    </message>
    <message>
        <source>Remote-control channel that moves the upper isotherm threshold: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die obere Isothermenschwelle verschiebt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>O&amp;verlay on/off</source>
        <translation>O&amp;verlay ein/aus</translation>
    </message>
    <message>
        <source>Remote-control channel that switches the overlay: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der das Overlay schaltet: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>&amp;Trigger</source>
        <translation>Tri&amp;gger</translation>
    </message>
    <message>
        <source>Remote-control channel that triggers the recording; the thresholds beside belong to it: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die Aufzeichnung auslöst; die Schwellen daneben gehören zu ihm: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Vi&amp;ew mode</source>
        <translation>An&amp;sichtsmodus</translation>
    </message>
    <message>
        <source>Remote-control channel that changes the view mode: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der den Ansichtsmodus wechselt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Switch mo&amp;de</source>
        <translation>Ums&amp;chaltart</translation>
    </message>
    <message>
        <source>How the channel selects the view mode: by high and low levels, or by its absolute level</source>
        <translation>Wie der Kanal den Ansichtsmodus wählt: durch hohe und niedrige Pegel oder durch seinen absoluten Pegel</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>Remote-control channel that zooms the visible-light camera: channel 1 to 18, or deactivated</source>
        <translation>Fernsteuerkanal, der die Tageslichtkamera zoomt: Kanal 1 bis 18 oder deaktiviert</translation>
    </message>
    <message>
        <source>Zoom m&amp;ode</source>
        <translation>Zoomsteueru&amp;ng</translation>
    </message>
    <message>
        <source>How the channel zooms: by high and low levels, by its absolute level, or by absolute levels in increments</source>
        <translation>Wie der Kanal zoomt: durch hohe und niedrige Pegel, durch seinen absoluten Pegel oder durch absolute Pegel in Schritten</translation>
    </message>
    <message>
        <source>absolute incremental</source>
        <translation>absolut, schrittweise</translation>
    </message>
    <message>
        <source>Threshold settings</source>
        <translation>Schwellen</translation>
    </message>
    <message>
        <source>Tri&amp;gger low</source>
        <translation>Untere Triggerschwe&amp;lle</translation>
    </message>
    <message>
        <source>Level of the trigger channel below which it counts as low, 1 to 2047 SBUS steps</source>
        <translation>Pegel des Triggerkanals, unter dem er als niedrig gilt, 1 bis 2047 SBUS-Schritte</translation>
    </message>
    <message>
        <source>Level of the trigger channel above which it counts as high, 1 to 2047 SBUS steps</source>
        <translation>Pegel des Triggerkanals, über dem er als hoch gilt, 1 bis 2047 SBUS-Schritte</translation>
    </message>
    <message>
        <source>Connection Options</source>
        <translation>Verbindungsoptionen</translation>
    </message>
    <message>
        <source>S&amp;BUS signal inverted</source>
        <translation>S&amp;BUS-Signal invertiert</translation>
    </message>
    <message>
        <source>Level of the SBUS signal, on or off: on for receivers that send it inverted</source>
        <translation>Pegel des SBUS-Signals, ein oder aus: ein bei Empfängern, die es invertiert senden</translation>
    </message>
    <message>
        <source>Channel Test</source>
        <translation>Kanaltest</translation>
    </message>
    <message>
        <source>Shows the levels of the sixteen SBUS channels live</source>
        <translation>Zeigt die Pegel der sechzehn SBUS-Kanäle live</translation>
    </message>
    <message>
        <source>Extensions</source>
        <translation>Erweiterungen</translation>
    </message>
    <message>
        <source>Serial Communication Parameter</source>
        <translation>Parameter der seriellen Verbindung</translation>
    </message>
    <message>
        <source>The tool sets these parameters itself.</source>
        <translation>Das Programm stellt diese Parameter selbst ein.</translation>
    </message>
    <message>
        <source>Extension port &amp;0</source>
        <translation>Erweiterungsanschluss &amp;0</translation>
    </message>
    <message>
        <source>What extension port 0 is used for; the choices depend on the model</source>
        <translation>Wofür Erweiterungsanschluss 0 dient; die Auswahl hängt vom Modell ab</translation>
    </message>
    <message>
        <source>Extension port &amp;1</source>
        <translation>Erweiterungsanschluss &amp;1</translation>
    </message>
    <message>
        <source>What extension port 1 is used for; the choices depend on the model</source>
        <translation>Wofür Erweiterungsanschluss 1 dient; die Auswahl hängt vom Modell ab</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Anlog video mode</source>
        <translation>Analoger Videomodus</translation>
    </message>
    <message>
        <source>Video &amp;standard</source>
        <translation>Video&amp;norm</translation>
    </message>
    <message>
        <source>Standard of the analog output: PAL-D or NTSC-M; must be that of the monitor or transmitter</source>
        <translation>Norm des Analogausgangs: PAL-D oder NTSC-M; muss der des Monitors oder Senders entsprechen</translation>
    </message>
    <message>
        <source>Hotspot Detection</source>
        <translation>Hotspot-Erkennung</translation>
    </message>
    <message>
        <source>IR in  video output</source>
        <translation>IR im Videoausgang</translation>
    </message>
    <message>
        <source>&amp;View mode</source>
        <translation>&amp;Ansichtsmodus</translation>
    </message>
    <message>
        <source>Share of the infrared picture in the video output, none to full frame</source>
        <translation>Anteil des Infrarotbilds am Videoausgang, keiner bis Vollbild</translation>
    </message>
    <message>
        <source>The share is that of the infrared picture laid over the visible one: 25, 50 or 75 % let the visible picture shine through, 100 % covers it. The last two show the infrared picture in a small window or over the full frame.</source>
        <translation>Der Anteil ist der des Infrarotbilds, das über dem sichtbaren liegt: Bei 25, 50 oder 75 % scheint das sichtbare Bild durch, bei 100 % ist es verdeckt. Die letzten beiden zeigen das Infrarotbild in einem kleinen Fenster oder im ganzen Bild.</translation>
    </message>
    <message>
        <source>Daylight only</source>
        <translation>Nur Tageslicht</translation>
    </message>
    <message>
        <source>IR 100% (opaque)</source>
        <translation>IR 100% (deckend)</translation>
    </message>
    <message>
        <source>IR Small Window</source>
        <translation>IR im kleinen Fenster</translation>
    </message>
    <message>
        <source>IR Full Frame</source>
        <translation>IR im ganzen Bild</translation>
    </message>
    <message>
        <source>Colours of the infrared picture, four palettes from cold to hot</source>
        <translation>Farben des Infrarotbilds, vier Paletten von kalt bis heiß</translation>
    </message>
    <message>
        <source>Iron</source>
        <translation>Eisen</translation>
    </message>
    <message>
        <source>Arctic</source>
        <translation>Arktis</translation>
    </message>
    <message>
        <source>White-hot</source>
        <translation>Weiß heiß</translation>
    </message>
    <message>
        <source>Black-hot</source>
        <translation>Schwarz heiß</translation>
    </message>
    <message>
        <source>&amp;Overlay</source>
        <translation>O&amp;verlay</translation>
    </message>
    <message>
        <source>Overlay in the video output, off or on; off while the gimbal remote control is installed</source>
        <translation>Overlay im Videoausgang, aus oder ein; aus, solange die Gimbal-Fernsteuerung eingebaut ist</translation>
    </message>
    <message>
        <source>OFF</source>
        <translation>AUS</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>EIN</translation>
    </message>
    <message>
        <source>Layer scaling and position</source>
        <translation>Skalierung und Lage der Ebenen</translation>
    </message>
    <message>
        <source>Isotherms in video</source>
        <translation>Isothermen im Video</translation>
    </message>
    <message>
        <source>&amp;Isotherms</source>
        <translation>&amp;Isothermen</translation>
    </message>
    <message>
        <source>Colours the infrared picture by temperature, four choices; enables the thresholds that the choice uses</source>
        <translation>Färbt das Infrarotbild nach der Temperatur, vier Möglichkeiten; gibt die Schwellen frei, die die Wahl verwendet</translation>
    </message>
    <message>
        <source>Isotherms colour the picture with three thresholds. Min / max uses the lower and the upper one. Automatic isotherms choose the thresholds themselves. A field that the choice does not use is locked.</source>
        <translation>Isothermen färben das Bild mit drei Schwellen. „Min / Max“ verwendet die untere und die obere. Automatische Isothermen wählen die Schwellen selbst. Ein Feld, das die Wahl nicht verwendet, ist gesperrt.</translation>
    </message>
    <message>
        <source>Off (default)</source>
        <translation>Aus (Standard)</translation>
    </message>
    <message>
        <source>Isotherms</source>
        <translation>Isothermen</translation>
    </message>
    <message>
        <source>Min / Max</source>
        <translation>Min / Max</translation>
    </message>
    <message>
        <source>Isotherm (automatic)</source>
        <translation>Isothermen (automatisch)</translation>
    </message>
    <message>
        <source>&amp;Transparency</source>
        <translation>&amp;Transparenz</translation>
    </message>
    <message>
        <source>Whether the picture shines through the isotherm colours, off or on</source>
        <translation>Ob das Bild durch die Isothermenfarben scheint, aus oder ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>&amp;Lower threshold (°C)</source>
        <translation>Unte&amp;re Schwelle (°C)</translation>
    </message>
    <message>
        <source>Lower temperature threshold, -273 to 1000 °C; of isotherms and min / max</source>
        <translation>Untere Temperaturschwelle, -273 bis 1000 °C; für Isothermen und Min / Max</translation>
    </message>
    <message>
        <source>&amp;Middle threshold (°C)</source>
        <translation>&amp;Mittlere Schwelle (°C)</translation>
    </message>
    <message>
        <source>Middle temperature threshold, -273 to 1000 °C; of isotherms only</source>
        <translation>Mittlere Temperaturschwelle, -273 bis 1000 °C; nur für Isothermen</translation>
    </message>
    <message>
        <source>&amp;Upper threshold (°C)</source>
        <translation>&amp;Obere Schwelle (°C)</translation>
    </message>
    <message>
        <source>Upper temperature threshold, -273 to 1000 °C; of isotherms and min / max</source>
        <translation>Obere Temperaturschwelle, -273 bis 1000 °C; für Isothermen und Min / Max</translation>
    </message>
    <message>
        <source>S&amp;witch mode</source>
        <translation>&amp;Umschaltart</translation>
    </message>
    <message>
        <source>How a remote-control channel sets the isotherms: by its high and low levels or by its absolute value</source>
        <translation>Wie ein Fernsteuerkanal die Isothermen stellt: durch hohe und niedrige Pegel oder durch seinen absoluten Wert</translation>
    </message>
    <message>
        <source>absolute values</source>
        <translation>absolute Werte</translation>
    </message>
    <message>
        <source>HDMI video mode</source>
        <translation>HDMI-Videomodus</translation>
    </message>
    <message>
        <source>Video mo&amp;de</source>
        <translation>Vid&amp;eomodus</translation>
    </message>
    <message>
        <source>Frame rate of the HDMI output, 30 or 60 Hz at 1080 lines; takes effect after the camera was turned off and on</source>
        <translation>Bildrate des HDMI-Ausgangs, 30 oder 60 Hz bei 1080 Zeilen; gilt, nachdem die Kamera aus- und eingeschaltet wurde</translation>
    </message>
    <message>
        <source>IR  Adjustements</source>
        <translation>IR-Abgleich</translation>
    </message>
    <message>
        <source>Offs&amp;et</source>
        <translation>Off&amp;set</translation>
    </message>
    <message>
        <source>Offset of the infrared adjustment, -9999 to 9999, no unit; sent by the button below</source>
        <translation>Offset des Infrarotabgleichs, -9999 bis 9999, ohne Einheit; die Schaltfläche darunter sendet ihn</translation>
    </message>
    <message>
        <source>F&amp;actor</source>
        <translation>Fa&amp;ktor</translation>
    </message>
    <message>
        <source>Factor of the infrared adjustment, 1 to 1000, no unit; sent by the button below</source>
        <translation>Faktor des Infrarotabgleichs, 1 bis 1000, ohne Einheit; die Schaltfläche darunter sendet ihn</translation>
    </message>
    <message>
        <source>PushButton</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Send infrared adjustment</source>
        <translation>Infrarotabgleich senden</translation>
    </message>
    <message>
        <source>Sends offset and factor to the connected camera at once</source>
        <translation>Sendet Offset und Faktor sofort an die verbundene Kamera</translation>
    </message>
    <message>
        <source>Visible Light Camera</source>
        <translation>Tageslichtkamera</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Camera &amp;model</source>
        <translation>Kamera&amp;modell</translation>
    </message>
    <message>
        <source>Visible-light camera that is built in, two choices</source>
        <translation>Eingebaute Tageslichtkamera, zwei Möglichkeiten</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>&amp;Zoom factor</source>
        <translation>&amp;Zoomfaktor</translation>
    </message>
    <message>
        <source>Automatic Exposure</source>
        <translation>Belichtungsautomatik</translation>
    </message>
    <message>
        <source>&amp;Exposure mode</source>
        <translation>&amp;Belichtungsart</translation>
    </message>
    <message>
        <source>Exposure of the visible-light camera: fully automatic, or by the shutter speed below</source>
        <translation>Belichtung der Tageslichtkamera: vollautomatisch oder nach der Belichtungszeit darunter</translation>
    </message>
    <message>
        <source>&amp;Shutter speed</source>
        <translation>Be&amp;lichtungszeit</translation>
    </message>
    <message>
        <source>Shutter speed of the visible-light camera, 1/10000 s (10000 Hz) to 1 s (1 Hz)</source>
        <translation>Belichtungszeit der Tageslichtkamera, 1/10000 s (10000 Hz) bis 1 s (1 Hz)</translation>
    </message>
    <message>
        <source>Vibration Compensation</source>
        <translation>Bildstabilisierung</translation>
    </message>
    <message>
        <source>Mo&amp;de</source>
        <translation>Bet&amp;riebsart</translation>
    </message>
    <message>
        <source>Picture stabiliser of the visible-light camera, off or on</source>
        <translation>Bildstabilisierung der Tageslichtkamera, aus oder ein</translation>
    </message>
    <message>
        <source>Vibration Compensation OFF</source>
        <translation>Bildstabilisierung AUS</translation>
    </message>
    <message>
        <source>Vibration Compensation ON</source>
        <translation>Bildstabilisierung EIN</translation>
    </message>
    <message>
        <source>Zoom &amp;position</source>
        <translation>Zoom&amp;stellung</translation>
    </message>
    <message>
        <source>Zoom position of the visible-light camera, 0 to 64, no unit; sent by the button below</source>
        <translation>Zoomstellung der Tageslichtkamera, 0 bis 64, ohne Einheit; die Schaltfläche darunter sendet sie</translation>
    </message>
    <message>
        <source>Live-Preview</source>
        <translation>Live-Vorschau</translation>
    </message>
    <message>
        <source>Moves the zoom of the connected camera at once</source>
        <translation>Verstellt den Zoom der verbundenen Kamera sofort</translation>
    </message>
    <message>
        <source>Focus (Tamron)</source>
        <translation>Fokus (Tamron)</translation>
    </message>
    <message>
        <source>F&amp;ocus mode</source>
        <translation>Fok&amp;usart</translation>
    </message>
    <message>
        <source>Focus of the visible-light camera: automatic, by the position below, or once after each zoom</source>
        <translation>Fokus der Tageslichtkamera: automatisch, nach der Stellung darunter oder einmal nach jedem Zoom</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>manual</source>
        <translation>manuell</translation>
    </message>
    <message>
        <source>autofocus once-after-zoom</source>
        <translation>Autofokus einmal nach Zoom</translation>
    </message>
    <message>
        <source>Foc&amp;us position</source>
        <translation>F&amp;okusstellung</translation>
    </message>
    <message>
        <source>Focus va&amp;lue</source>
        <translation>Fokus&amp;wert</translation>
    </message>
    <message>
        <source>Focus position of the slider, 4096 to 45056, no unit; for reading only</source>
        <translation>Fokusstellung des Schiebereglers, 4096 bis 45056, ohne Einheit; nur zum Ablesen</translation>
    </message>
    <message>
        <source>Focus (Sony FCB)</source>
        <translation>Fokus (Sony FCB)</translation>
    </message>
    <message>
        <source>Focus ad&amp;justment</source>
        <translation>Fokus&amp;justierung</translation>
    </message>
    <message>
        <source>Focus adjustment of the visible-light camera, -31 to 31, no unit; 0 adjusts nothing</source>
        <translation>Fokusjustierung der Tageslichtkamera, -31 bis 31, ohne Einheit; 0 verstellt nichts</translation>
    </message>
    <message>
        <source>Auto adjust focus (~20sek)</source>
        <translation>Fokus automatisch justieren (~20 s)</translation>
    </message>
    <message>
        <source>Lets the connected camera find its focus adjustment; takes about 20 seconds</source>
        <translation>Lässt die verbundene Kamera ihre Fokusjustierung finden; dauert etwa 20 Sekunden</translation>
    </message>
    <message>
        <source>Camera adjustments</source>
        <translation>Kameraeinstellungen</translation>
    </message>
    <message>
        <source>Exposure &amp;correction</source>
        <translation>Belichtungs&amp;korrektur</translation>
    </message>
    <message>
        <source>Exposure correction of the visible-light camera, -6 to 6 steps; above 0 is brighter</source>
        <translation>Belichtungskorrektur der Tageslichtkamera, -6 bis 6 Stufen; über 0 ist heller</translation>
    </message>
    <message>
        <source>&amp;Adaptive gradation correction</source>
        <translation>&amp;Adaptive Gradationskorrektur</translation>
    </message>
    <message>
        <source>Evens out bright and dark areas of the visible picture, off or on</source>
        <translation>Gleicht helle und dunkle Bereiche des sichtbaren Bilds aus, aus oder ein</translation>
    </message>
    <message>
        <source>&amp;White balance</source>
        <translation>Weißabgl&amp;eich</translation>
    </message>
    <message>
        <source>White balance of the visible-light camera: automatic, held, or for a kind of light</source>
        <translation>Weißabgleich der Tageslichtkamera: automatisch, gehalten oder für eine Lichtart</translation>
    </message>
    <message>
        <source>AUTO</source>
        <translation>AUTO</translation>
    </message>
    <message>
        <source>HOLD</source>
        <translation>HALTEN</translation>
    </message>
    <message>
        <source>ATW (All pull-in)</source>
        <translation>ATW (alle Lichtarten)</translation>
    </message>
    <message>
        <source>Light bulb</source>
        <translation>Glühlampe</translation>
    </message>
    <message>
        <source>Daylight color fluorescent light</source>
        <translation>Tageslicht-Leuchtstofflampe</translation>
    </message>
    <message>
        <source>Clear sky</source>
        <translation>Klarer Himmel</translation>
    </message>
    <message>
        <source>Cloudy sky</source>
        <translation>Bedeckter Himmel</translation>
    </message>
    <message>
        <source>Fluorescent light fixed</source>
        <translation>Leuchtstofflampe, fest</translation>
    </message>
    <message>
        <source>Light bulb color fluorescent light</source>
        <translation>Warmton-Leuchtstofflampe</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufzeichnungen</translation>
    </message>
    <message>
        <source>Compression Quality</source>
        <translation>Kompressionsqualität</translation>
    </message>
    <message>
        <source>JPEG &amp;quality</source>
        <translation>JPEG-&amp;Qualität</translation>
    </message>
    <message>
        <source>Quality of the daylight pictures, 1 to 99 %; higher means finer pictures and larger files</source>
        <translation>Qualität der Tageslichtbilder, 1 bis 99 %; höher bedeutet feinere Bilder und größere Dateien</translation>
    </message>
    <message>
        <source>Image output</source>
        <translation>Bildausgabe</translation>
    </message>
    <message>
        <source>&amp;Destination</source>
        <translation>&amp;Ziel</translation>
    </message>
    <message>
        <source>Where recorded pictures go: the SD card in the camera, or out through USB</source>
        <translation>Wohin aufgezeichnete Bilder gehen: auf die SD-Karte in der Kamera oder über USB hinaus</translation>
    </message>
    <message>
        <source>Write to sd-card</source>
        <translation>Auf SD-Karte schreiben</translation>
    </message>
    <message>
        <source>Output via USB</source>
        <translation>Über USB ausgeben</translation>
    </message>
    <message>
        <source>Define how many frames should be skipped while recording.</source>
        <translation>Legt fest, wie viele Bilder bei der Aufzeichnung ausgelassen werden.</translation>
    </message>
    <message>
        <source>Frames to s&amp;kip</source>
        <translation>&amp;Auszulassende Bilder</translation>
    </message>
    <message>
        <source>Number of frames skipped while recording, 0 to 4294967295; 0 skips none, text that is no number counts as 0</source>
        <translation>Anzahl der Bilder, die bei der Aufzeichnung ausgelassen werden, 0 bis 4294967295; 0 lässt keines aus, Text, der keine Zahl ist, zählt als 0</translation>
    </message>
    <message>
        <source>Sync mode</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>&amp;Advanced sync</source>
        <translation>&amp;Erweiterte Synchronisation</translation>
    </message>
    <message>
        <source>Advanced synchronisation of the recordings, off or on</source>
        <translation>Erweiterte Synchronisation der Aufzeichnungen, aus oder ein</translation>
    </message>
    <message>
        <source>Compression Quality (Daylight JPGs only)</source>
        <translation>Kompressionsqualität (nur Tageslicht-JPGs)</translation>
    </message>
    <message>
        <source>&amp;JPEG quality</source>
        <translation>&amp;JPEG-Qualität</translation>
    </message>
    <message>
        <source>Quality of the daylight pictures: 75, 85 or 95 %; higher means finer pictures and larger files</source>
        <translation>Qualität der Tageslichtbilder: 75, 85 oder 95 %; höher bedeutet feinere Bilder und größere Dateien</translation>
    </message>
    <message>
        <source>Factory Settings</source>
        <translation>Werkseinstellungen</translation>
    </message>
    <message>
        <source>Calibration of this unit, for production</source>
        <translation>Kalibrierung dieses Geräts, für die Fertigung</translation>
    </message>
    <message>
        <source>Test Window</source>
        <translation>Testfenster</translation>
    </message>
    <message>
        <source>Moves the infrared picture of the connected camera live, for production</source>
        <translation>Verschiebt das Infrarotbild der verbundenen Kamera live, für die Fertigung</translation>
    </message>
    <message>
        <source>Settings-Preview</source>
        <translation>Einstellungsvorschau</translation>
    </message>
    <message>
        <source>Tries the settings of the form on the connected camera without storing them (F6)</source>
        <translation>Probiert die Einstellungen des Formulars an der verbundenen Kamera aus, ohne sie zu speichern (F6)</translation>
    </message>
    <message>
        <source>Read Device</source>
        <translation>Gerät lesen</translation>
    </message>
    <message>
        <source>Reads the configuration of the connected camera into the form (F5)</source>
        <translation>Liest die Konfiguration der verbundenen Kamera in das Formular (F5)</translation>
    </message>
    <message>
        <source>Write Settings to Device</source>
        <translation>Einstellungen in Gerät schreiben</translation>
    </message>
    <message>
        <source>Stores the settings of the form in the connected camera, which restarts (Ctrl+Shift+S)</source>
        <translation>Speichert die Einstellungen des Formulars in der verbundenen Kamera, die neu startet (Strg+Umschalt+S)</translation>
    </message>
    <message>
        <source>After a question, the whole form is written to the camera, which keeps it and restarts. Read the device first, so that nothing is overwritten unknowingly.</source>
        <translation>Nach einer Rückfrage wird das ganze Formular in die Kamera geschrieben, die es behält und neu startet. Lesen Sie das Gerät zuerst, damit nichts unwissentlich überschrieben wird.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Load a configuration file into the form</source>
        <translation>Eine Konfigurationsdatei in das Formular laden</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save the form as a configuration file</source>
        <translation>Das Formular als Konfigurationsdatei speichern</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Close the program</source>
        <translation>Das Programm schließen</translation>
    </message>
    <message>
        <source>Command rejected</source>
        <translation>Befehl abgelehnt</translation>
    </message>
    <message>
        <source>&lt;p&gt;Command was rejected&lt;/p&gt;</source>
        <translation>&lt;p&gt;Der Befehl wurde abgelehnt&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Save configuration</source>
        <translation>Konfiguration speichern</translation>
    </message>
    <message>
        <source>&lt;p&gt;You are going to save a new configuration.&lt;br&gt;The device will be restartet.&lt;br&gt;Are you sure to proceed?&lt;/p&gt;</source>
        <translation>&lt;p&gt;Sie sind dabei, eine neue Konfiguration zu speichern.&lt;br&gt;Das Gerät wird neu gestartet.&lt;br&gt;Möchten Sie fortfahren?&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>Datei speichern</translation>
    </message>
    <message>
        <source>Binary files (*.bin *.BIN)</source>
        <translation>Binärdateien (*.bin *.BIN)</translation>
    </message>
    <message>
        <source>Configuration loaded</source>
        <translation>Konfiguration geladen</translation>
    </message>
    <message>
        <source>&lt;p&gt;The new configuration was succesfully loaded.&lt;br&gt;Do you want to save the settings on your device?&lt;/p&gt;</source>
        <translation>&lt;p&gt;Die neue Konfiguration wurde erfolgreich geladen.&lt;br&gt;Möchten Sie die Einstellungen in Ihrem Gerät speichern?&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Binary files (*bin *.BIN)</source>
        <translation>Binärdateien (*bin *.BIN)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;User guide</source>
        <translation>&amp;Benutzerhandbuch</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>Alt+F</source>
        <comment>opens the File menu</comment>
        <translation>Alt+D</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
    <message>
        <source>&lt;p&gt;The user guide is not installed on this computer.&lt;/p&gt;&lt;p&gt;It comes with the program&apos;s package and its sources as guide.md.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Das Benutzerhandbuch ist auf diesem Rechner nicht installiert.&lt;/p&gt;&lt;p&gt;Es liegt dem Paket des Programms und seinen Quellen als guide.md bei (auf Englisch).&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;No program was found that shows the user guide. Open this file in a browser or an editor:&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Es wurde kein Programm gefunden, das das Benutzerhandbuch anzeigt. Öffnen Sie diese Datei in einem Browser oder Editor:&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About Quorvix Configuration</source>
        <translation>Über Quorvix Configuration</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Quorvix Configuration %1&lt;/h3&gt;&lt;p&gt;Sets up Quorvix Blend and Quorvix Blend Zoom thermal cameras.&lt;/p&gt;&lt;p&gt;Running with Qt %2, built with Qt %3.&lt;/p&gt;&lt;p&gt;Uses the Qt 5 libraries Core, Gui, Widgets, Serial Port, QML, Quick and Quick Controls as shared libraries under the GNU Lesser General Public License, version 3. Their sources come from the Qt Project and from the distribution that installed them.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Quorvix Configuration %1&lt;/h3&gt;&lt;p&gt;Stellt Wärmebildkameras Quorvix Blend und Quorvix Blend Zoom ein.&lt;/p&gt;&lt;p&gt;Läuft mit Qt %2, gebaut mit Qt %3.&lt;/p&gt;&lt;p&gt;Verwendet die Qt-5-Bibliotheken Core, Gui, Widgets, Serial Port, QML, Quick und Quick Controls als gemeinsam genutzte Bibliotheken unter der GNU Lesser General Public License, Version 3. Ihre Quellen stammen vom Qt-Projekt und von der Distribution, die sie installiert hat.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Outdated firmware detected.&lt;br&gt;Please update the firmware.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Veraltete Firmware erkannt.&lt;br&gt;Bitte aktualisieren Sie die Firmware.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Outdated firmware detected.&lt;br&gt;Please update to firmware 1.4.x.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Veraltete Firmware erkannt.&lt;br&gt;Bitte aktualisieren Sie auf Firmware 1.4.x.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Device ID: %1   Serial: %2</source>
        <translation>Geräte-ID: %1   Seriennummer: %2</translation>
    </message>
    <message>
        <source>Firmware outdated</source>
        <translation>Firmware veraltet</translation>
    </message>
    <message>
        <source>&lt;p&gt;Change of video output requires you&lt;br&gt;to turn the device off and on again.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Nach einer Änderung der Videoausgabe müssen Sie&lt;br&gt;das Gerät aus- und wieder einschalten.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Cannot open %1: no permission. Add your user to the group dialout, then log in again.</source>
        <translation>%1 lässt sich nicht öffnen: keine Berechtigung. Nehmen Sie Ihren Benutzer in die Gruppe dialout auf und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>Cannot open %1: another program holds it. Close that program, then connect again.</source>
        <translation>%1 lässt sich nicht öffnen: Ein anderes Programm belegt die Schnittstelle. Schließen Sie es und verbinden Sie erneut.</translation>
    </message>
    <message>
        <source>Cannot open %1: no such device. Plug the camera in again.</source>
        <translation>%1 lässt sich nicht öffnen: kein solches Gerät. Stecken Sie die Kamera neu ein.</translation>
    </message>
    <message>
        <source>Cannot open %1: it is no usable serial port. Choose another one, or plug the camera in again.</source>
        <translation>%1 lässt sich nicht öffnen: keine brauchbare serielle Schnittstelle. Wählen Sie eine andere oder stecken Sie die Kamera neu ein.</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Trigge&amp;r high</source>
        <translation>Obere Triggersch&amp;welle</translation>
    </message>
    <message>
        <source>Switching this on presets the channels of the SBUS/PPM tab for the gimbal. It sets and locks the trigger mode (SBUS), the trigger frame mode (ongoing stream), the overlay (off) and the isotherms (off). It does not lock the channels: they can be edited if the trigger mode was SBUS or PPM before. Switching it off unlocks the four fields, with the trigger at ON/OFF; the channels keep what was preset.</source>
        <translation>Beim Einschalten werden die Kanäle der Registerkarte SBUS/PPM für den Gimbal belegt. Gesetzt und gesperrt werden Triggermodus (SBUS), Aufnahmeart (fortlaufender Strom), Overlay (aus) und Isothermen (aus). Die Kanäle werden nicht gesperrt: Sie sind änderbar, wenn der Triggermodus vorher SBUS oder PPM war. Beim Ausschalten werden die vier Felder freigegeben, der Trigger steht dann auf EIN/AUS; die Kanäle behalten ihre Belegung.</translation>
    </message>
    <message>
        <source>The receivers come with a fixed serial port: 38400 bit/s for the u-blox 6, 9600 bit/s for the u-blox 8 at 1 Hz, 115200 bit/s for the u-blox 8 at 10 Hz, each without parity, one stop bit, signal inverted. Choosing one sets and locks the settings on the GPS/Serial tab. Custom settings, for any other hardware, unlock them, and so does switching on the gimbal remote control of a Blend Zoom.</source>
        <translation>Die Schnittstelle der Empfänger ist festgelegt: 38400 bit/s beim u-blox 6, 9600 bit/s beim u-blox 8 mit 1 Hz, 115200 bit/s beim u-blox 8 mit 10 Hz, jeweils ohne Parität, mit einem Stoppbit und invertiertem Signal. Die Wahl eines Empfängers setzt und sperrt die Einstellungen der Registerkarte GPS/Seriell. Eigene Einstellungen, für jede andere Hardware, geben sie frei, ebenso das Einschalten der Gimbal-Fernsteuerung einer Blend Zoom.</translation>
    </message>
    <message>
        <source>Watch the live levels with the channel test and choose thresholds between those of the switch positions.</source>
        <translation>Beobachten Sie die Pegel mit dem Kanaltest und wählen Sie Schwellen zwischen denen der Schalterstellungen.</translation>
    </message>
    <message>
        <source>Zoom factor of the visible-light camera, 1 to 10; sent to a connected camera after a second</source>
        <translation>Zoomfaktor der Tageslichtkamera, 1 bis 10; geht nach einer Sekunde an eine verbundene Kamera</translation>
    </message>
    <message>
        <source>Focus position, 4096 to 45056 in steps of 128, no unit; sent to a connected camera after a second</source>
        <translation>Fokusposition, 4096 bis 45056 in Schritten von 128, ohne Einheit; geht nach einer Sekunde an eine verbundene Kamera</translation>
    </message>
    <message>
        <source>Hidden while the HDMI output has 60 Hz. Changing to 60 Hz sets the quality to 75 %; a configuration that is read with 60 Hz keeps the quality it holds.</source>
        <translation>Verborgen, solange der HDMI-Ausgang 60 Hz hat. Der Wechsel auf 60 Hz setzt die Qualität auf 75 %; eine Konfiguration, die mit 60 Hz gelesen wird, behält ihre Qualität.</translation>
    </message>
    <message>
        <source>The camera takes the settings over at once but forgets them when it restarts. Nothing is sent within two seconds after another command of the main window: press again then. After a change of the HDMI video mode the button is locked until the next connection.</source>
        <translation>Die Kamera übernimmt die Einstellungen sofort, vergisst sie aber bei einem Neustart. Innerhalb von zwei Sekunden nach einem anderen Befehl des Hauptfensters wird nichts gesendet: Drücken Sie dann noch einmal. Nach einem Wechsel des HDMI-Videomodus ist die Schaltfläche bis zur nächsten Verbindung gesperrt.</translation>
    </message>
    <message>
        <source>Not sent: the camera is no longer connected. Connect again.</source>
        <translation>Nicht gesendet: Die Kamera ist nicht mehr verbunden. Verbinden Sie erneut.</translation>
    </message>
    <message>
        <source>Cannot open a port with so long a name. Make a link to it, then choose the link: %1</source>
        <translation>Eine Schnittstelle mit so langem Namen lässt sich nicht öffnen. Legen Sie einen Verweis darauf an und wählen Sie diesen: %1</translation>
    </message>
    <message>
        <source>Text that the camera receives on its serial port; the last 10000 lines are kept, of long lines the last 1048576 characters</source>
        <translation>Text, den die Kamera an ihrer seriellen Schnittstelle empfängt; die letzten 10000 Zeilen bleiben erhalten, von langen Zeilen die letzten 1048576 Zeichen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>No whole number from 0 to 4294967295: 0 is stored</source>
        <translation>Keine ganze Zahl von 0 bis 4294967295: gespeichert wird 0</translation>
    </message>
    <message>
        <source>Saved %1 (zeros: the settings of a Quorvix 2.0 are not known)</source>
        <translation>%1 gespeichert (Nullen: Die Einstellungen einer Quorvix 2.0 sind nicht bekannt)</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1 lässt sich nicht laden: %2</translation>
    </message>
    <message>
        <source>Cannot load %1, it holds no valid record: %2</source>
        <translation>%1 lässt sich nicht laden, sie enthält keinen gültigen Datensatz: %2</translation>
    </message>
    <message>
        <source>Cannot save %1: not a regular file</source>
        <translation>%1 lässt sich nicht speichern: keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>Saved %1 (%2)</source>
        <translation>%1 gespeichert (%2)</translation>
    </message>
    <message>
        <source>%1 is empty: no model is chosen, so there is nothing to save</source>
        <translation>%1 ist leer: Es ist kein Modell gewählt, also gibt es nichts zu speichern</translation>
    </message>
    <message>
        <source>%1 is empty: the settings of a %2 are not known</source>
        <translation>%1 ist leer: Die Einstellungen einer %2 sind nicht bekannt</translation>
    </message>
    <message>
        <source>Loaded %1 (%2)</source>
        <translation>%1 geladen (%2)</translation>
    </message>
    <message>
        <source>%1, but the form is that of a %2</source>
        <translation>%1, aber das Formular ist das einer %2</translation>
    </message>
</context>
<context>
    <name>SessionState</name>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Not connected. Last connection: %1</source>
        <translation>Nicht verbunden. Letzte Verbindung: %1</translation>
    </message>
    <message>
        <source>does not take what is sent</source>
        <translation>nimmt nicht an, was gesendet wird</translation>
    </message>
    <message>
        <source>no camera identified</source>
        <translation>keine Kamera erkannt</translation>
    </message>
    <message>
        <source>firmware %1</source>
        <translation>Firmware %1</translation>
    </message>
    <message>
        <source>configuration never read</source>
        <translation>Konfiguration nie gelesen</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>gesendet</translation>
    </message>
    <message>
        <source>no answer for %1 s</source>
        <translation>keine Antwort seit %1 s</translation>
    </message>
    <message>
        <source>acknowledged, the camera restarts</source>
        <translation>bestätigt, die Kamera startet neu</translation>
    </message>
    <message>
        <source>acknowledged</source>
        <translation>bestätigt</translation>
    </message>
    <message>
        <source>refused by the camera</source>
        <translation>von der Kamera abgelehnt</translation>
    </message>
    <message>
        <source>not known to the camera</source>
        <translation>der Kamera nicht bekannt</translation>
    </message>
    <message>
        <source>no answer before the port closed</source>
        <translation>keine Antwort, bevor die Verbindung endete</translation>
    </message>
    <message>
        <source>not sent, no port is open</source>
        <translation>nicht gesendet, keine Schnittstelle ist offen</translation>
    </message>
    <message>
        <source>not usable, %1; the port was closed</source>
        <translation>nicht brauchbar, %1; die Verbindung wurde beendet</translation>
    </message>
    <message>
        <source>The camera still shows the earlier value: Settings-Preview sends it</source>
        <translation>Die Kamera zeigt noch den früheren Wert: Einstellungsvorschau sendet den neuen</translation>
    </message>
    <message>
        <source>not sent, the camera has not taken what was sent before</source>
        <translation>nicht gesendet, die Kamera hat das vorher Gesendete noch nicht angenommen</translation>
    </message>
    <message>
        <source>acknowledged, restart refused</source>
        <translation>bestätigt, Neustart abgelehnt</translation>
    </message>
</context>
<context>
    <name>StateLabels</name>
    <message>
        <source>Connection: %1</source>
        <translation>Verbindung: %1</translation>
    </message>
    <message>
        <source>Last command: %1</source>
        <translation>Letzter Befehl: %1</translation>
    </message>
</context>
<context>
    <name>commandTitle</name>
    <message>
        <source>Write configuration</source>
        <translation>Konfiguration schreiben</translation>
    </message>
    <message>
        <source>Read configuration</source>
        <translation>Konfiguration lesen</translation>
    </message>
    <message>
        <source>Write factory settings</source>
        <translation>Werkseinstellungen schreiben</translation>
    </message>
    <message>
        <source>Read factory settings</source>
        <translation>Werkseinstellungen lesen</translation>
    </message>
    <message>
        <source>Identify camera</source>
        <translation>Kamera erkennen</translation>
    </message>
    <message>
        <source>Zoom preview</source>
        <translation>Zoomvorschau</translation>
    </message>
    <message>
        <source>Live settings</source>
        <translation>Live-Einstellungen</translation>
    </message>
    <message>
        <source>Read SBUS levels</source>
        <translation>SBUS-Werte lesen</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>GPS stream</source>
        <translation>GPS-Datenstrom</translation>
    </message>
    <message>
        <source>Auto focus</source>
        <translation>Autofokus</translation>
    </message>
    <message>
        <source>HDMI displacement</source>
        <translation>HDMI-Verschiebung</translation>
    </message>
    <message>
        <source>Analog displacement</source>
        <translation>Analog-Verschiebung</translation>
    </message>
    <message>
        <source>Flat-field correction</source>
        <translation>Flachfeldkorrektur</translation>
    </message>
    <message>
        <source>Infrared adjustment</source>
        <translation>Infrarotanpassung</translation>
    </message>
    <message>
        <source>Command %1</source>
        <translation>Befehl %1</translation>
    </message>
</context>
<context>
    <name>recordDefect</name>
    <message>
        <source>of version %1, newer than this tool knows</source>
        <translation>von Version %1, neuer als dieses Programm kennt</translation>
    </message>
    <message>
        <source>of version %1, older than this tool reads</source>
        <translation>von Version %1, älter als dieses Programm liest</translation>
    </message>
    <message>
        <source>too short: %1 bytes instead of %2</source>
        <translation>zu kurz: %1 Bytes statt %2</translation>
    </message>
    <message>
        <source>wrong data length: %1</source>
        <translation>falsche Datenlänge: %1</translation>
    </message>
    <message>
        <source>wrong checksum</source>
        <translation>falsche Prüfsumme</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>too short: %1 bytes</source>
        <translation>zu kurz: %1 Bytes</translation>
    </message>
    <message>
        <source>of a Quorvix 2.0, whose settings this tool does not know</source>
        <translation>einer Quorvix 2.0, deren Einstellungen dieses Programm nicht kennt</translation>
    </message>
    <message>
        <source>of no known camera</source>
        <translation>von keiner bekannten Kamera</translation>
    </message>
</context>
<context>
    <name>recordfile</name>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1 lässt sich nicht speichern: %2</translation>
    </message>
    <message>
        <source>Could not write %1 whole: %2. The file is as it was</source>
        <translation>%1 ließ sich nicht ganz schreiben: %2. Die Datei ist, wie sie war</translation>
    </message>
    <message>
        <source>Could not write %1 whole: %2. What it held is lost</source>
        <translation>%1 ließ sich nicht ganz schreiben: %2. Ihr früherer Inhalt ist verloren</translation>
    </message>
    <message>
        <source>Could not write %1 whole: %2. There is no such file</source>
        <translation>%1 ließ sich nicht ganz schreiben: %2. Die Datei gibt es nicht</translation>
    </message>
    <message>
        <source>Could not write %1 whole: %2. It holds a part only</source>
        <translation>%1 ließ sich nicht ganz schreiben: %2. Sie enthält nur einen Teil</translation>
    </message>
</context>
<context>
    <name>sbusTester</name>
    <message>
        <source>Sbus tester</source>
        <translation>SBUS-Test</translation>
    </message>
    <message>
        <source>Channel live values</source>
        <translation>Live-Werte der Kanäle</translation>
    </message>
    <message>
        <source>Channel 1</source>
        <translation>Kanal 1</translation>
    </message>
    <message>
        <source>Level of channel 1</source>
        <translation>Pegel von Kanal 1</translation>
    </message>
    <message>
        <source>0 to 2000; the number shows higher levels in full</source>
        <translation>0 bis 2000; die Zahl zeigt auch höhere Pegel vollständig</translation>
    </message>
    <message>
        <source>Channel 2</source>
        <translation>Kanal 2</translation>
    </message>
    <message>
        <source>Level of channel 2</source>
        <translation>Pegel von Kanal 2</translation>
    </message>
    <message>
        <source>Channel 3</source>
        <translation>Kanal 3</translation>
    </message>
    <message>
        <source>Level of channel 3</source>
        <translation>Pegel von Kanal 3</translation>
    </message>
    <message>
        <source>Channel 4</source>
        <translation>Kanal 4</translation>
    </message>
    <message>
        <source>Level of channel 4</source>
        <translation>Pegel von Kanal 4</translation>
    </message>
    <message>
        <source>Channel 5</source>
        <translation>Kanal 5</translation>
    </message>
    <message>
        <source>Level of channel 5</source>
        <translation>Pegel von Kanal 5</translation>
    </message>
    <message>
        <source>Channel 6</source>
        <translation>Kanal 6</translation>
    </message>
    <message>
        <source>Level of channel 6</source>
        <translation>Pegel von Kanal 6</translation>
    </message>
    <message>
        <source>Channel 7</source>
        <translation>Kanal 7</translation>
    </message>
    <message>
        <source>Level of channel 7</source>
        <translation>Pegel von Kanal 7</translation>
    </message>
    <message>
        <source>Channel 8</source>
        <translation>Kanal 8</translation>
    </message>
    <message>
        <source>Level of channel 8</source>
        <translation>Pegel von Kanal 8</translation>
    </message>
    <message>
        <source>Channel 9</source>
        <translation>Kanal 9</translation>
    </message>
    <message>
        <source>Level of channel 9</source>
        <translation>Pegel von Kanal 9</translation>
    </message>
    <message>
        <source>Channel 10</source>
        <translation>Kanal 10</translation>
    </message>
    <message>
        <source>Level of channel 10</source>
        <translation>Pegel von Kanal 10</translation>
    </message>
    <message>
        <source>Channel 11</source>
        <translation>Kanal 11</translation>
    </message>
    <message>
        <source>Level of channel 11</source>
        <translation>Pegel von Kanal 11</translation>
    </message>
    <message>
        <source>Channel 12</source>
        <translation>Kanal 12</translation>
    </message>
    <message>
        <source>Level of channel 12</source>
        <translation>Pegel von Kanal 12</translation>
    </message>
    <message>
        <source>Channel 13</source>
        <translation>Kanal 13</translation>
    </message>
    <message>
        <source>Level of channel 13</source>
        <translation>Pegel von Kanal 13</translation>
    </message>
    <message>
        <source>Channel 14</source>
        <translation>Kanal 14</translation>
    </message>
    <message>
        <source>Level of channel 14</source>
        <translation>Pegel von Kanal 14</translation>
    </message>
    <message>
        <source>Channel 15</source>
        <translation>Kanal 15</translation>
    </message>
    <message>
        <source>Level of channel 15</source>
        <translation>Pegel von Kanal 15</translation>
    </message>
    <message>
        <source>Channel 16</source>
        <translation>Kanal 16</translation>
    </message>
    <message>
        <source>Level of channel 16</source>
        <translation>Pegel von Kanal 16</translation>
    </message>
    <message>
        <source>Busy indicator</source>
        <translation>Aktivitätsanzeige</translation>
    </message>
    <message>
        <source>Turns while channel levels are requested</source>
        <translation>Dreht sich, solange Kanalpegel angefordert werden</translation>
    </message>
    <message>
        <source>Start/Stop</source>
        <translation>Start/Stopp</translation>
    </message>
    <message>
        <source>Starts or stops asking the camera for its channel levels, twice a second</source>
        <translation>Beginnt oder beendet die Abfrage der Kanalpegel der Kamera, zweimal je Sekunde</translation>
    </message>
</context>
<context>
    <name>whatsthis</name>
    <message>
        <source>Choose the model here to prepare or to save a configuration without a camera. A camera that is connected sets it by itself; leave it alone then, for what is written has the layout of this model.</source>
        <translation>Wählen Sie hier das Modell, um ohne Kamera eine Konfiguration vorzubereiten oder zu speichern. Eine Kamera, die verbunden wird, stellt es selbst ein; lassen Sie es dann stehen, denn was geschrieben wird, hat den Aufbau dieses Modells.</translation>
    </message>
    <message>
        <source>The list stands still while a port is open. A port that it lacks is named at the start: quorvix-config --port NAME.</source>
        <translation>Die Liste ruht, solange ein Port offen ist. Ein Port, der ihr fehlt, wird beim Start genannt: quorvix-config --port NAME.</translation>
    </message>
    <message>
        <source>After connecting, the camera&apos;s configuration is read into the form: what was changed there and neither written nor saved is replaced.</source>
        <translation>Nach dem Verbinden wird die Konfiguration der Kamera in das Formular gelesen: Was dort geändert und weder geschrieben noch gespeichert wurde, wird ersetzt.</translation>
    </message>
    <message>
        <source>What was changed in the form and neither written nor saved is replaced. The overlay, and on a Blend Zoom the switch mode of the colour map, are not read.</source>
        <translation>Was im Formular geändert und weder geschrieben noch gespeichert wurde, wird ersetzt. Das Overlay und bei einer Blend Zoom der Umschaltmodus der Farbpalette werden nicht gelesen.</translation>
    </message>
    <message>
        <source>Opens the calibration and reads that of the connected camera.</source>
        <translation>Öffnet die Kalibrierung und liest die der verbundenen Kamera.</translation>
    </message>
    <message>
        <source>A setting of the external shutter on the shutter&apos;s own scale: its documentation tells what suits it. Shown while an external shutter is installed.</source>
        <translation>Eine Einstellung des externen Shutters in seiner eigenen Skala: Seine Dokumentation sagt, was zu ihm passt. Sichtbar, solange ein externer Shutter eingebaut ist.</translation>
    </message>
    <message>
        <source>The offset is stored in hundredths and cut off, not rounded: 0.57 comes back as 0.56.</source>
        <translation>Der Offset wird in Hundertsteln gespeichert und abgeschnitten, nicht gerundet: 0,57 kommt als 0,56 zurück.</translation>
    </message>
    <message>
        <source>For tests on the ground only. Choose NONE before a flight. Blend Zoom only.</source>
        <translation>Nur für Versuche am Boden. Wählen Sie vor einem Flug NONE. Nur Blend Zoom.</translation>
    </message>
    <message>
        <source>Switching the gimbal remote control on sets the ongoing stream and locks the field.</source>
        <translation>Das Einschalten der Gimbal-Fernsteuerung setzt den fortlaufenden Strom und sperrt das Feld.</translation>
    </message>
    <message>
        <source>Automatic leaves the time to the infrared camera. The fixed intervals follow the delay below; they either wait for the end of a recording or interrupt it. An external shutter sets this to external and locks it.</source>
        <translation>Automatisch überlässt die Zeit der Infrarotkamera. Die festen Abstände folgen der Verzögerung darunter; sie warten entweder das Ende einer Aufzeichnung ab oder unterbrechen sie. Ein externer Shutter setzt dies auf extern und sperrt es.</translation>
    </message>
    <message>
        <source>Locked while the FFC mode is automatic.</source>
        <translation>Gesperrt, solange der FFC-Modus automatisch ist.</translation>
    </message>
    <message>
        <source>Acts on the connected camera at once and changes no setting. Nothing happens without a connection.</source>
        <translation>Wirkt sofort auf die verbundene Kamera und ändert keine Einstellung. Ohne Verbindung geschieht nichts.</translation>
    </message>
    <message>
        <source>These four settings have to be those of the hardware at the camera&apos;s serial port. A receiver chosen under Periphery &gt; GPS sets and locks them. Custom settings unlock them, and so does switching on the gimbal remote control of a Blend Zoom.</source>
        <translation>Diese vier Einstellungen müssen die der Hardware an der seriellen Schnittstelle der Kamera sein. Ein Empfänger, der unter Peripherie &gt; GPS gewählt wird, setzt und sperrt sie. Eigene Einstellungen geben sie frei, ebenso das Einschalten der Gimbal-Fernsteuerung einer Blend Zoom.</translation>
    </message>
    <message>
        <source>The channel test shows which channel a stick or a switch of the remote control moves. The trigger modes SBUS and PPM unlock the channels; the gimbal remote control presets them.</source>
        <translation>Der Kanaltest zeigt, welchen Kanal ein Knüppel oder Schalter der Fernsteuerung bewegt. Die Triggermodi SBUS und PPM geben die Kanäle frei; die Gimbal-Fernsteuerung belegt sie.</translation>
    </message>
    <message>
        <source>Choosing SBUS or PPM as trigger mode of a Blend deactivates this channel and locks it until the program ends.</source>
        <translation>Die Wahl von SBUS oder PPM als Triggermodus einer Blend deaktiviert diesen Kanal und sperrt ihn bis zum Ende des Programms.</translation>
    </message>
    <message>
        <source>The two thresholds belong to this channel: they are read from its place in the camera&apos;s table of thresholds. A write puts them into every place.</source>
        <translation>Die beiden Schwellen gehören zu diesem Kanal: Sie werden von seinem Platz in der Schwellentabelle der Kamera gelesen. Ein Schreiben setzt sie auf jeden Platz.</translation>
    </message>
    <message>
        <source>Read back from a Blend, but not from a Blend Zoom: set it before each write to a Blend Zoom.</source>
        <translation>Wird von einer Blend zurückgelesen, von einer Blend Zoom aber nicht: Stellen Sie es vor jedem Schreiben in eine Blend Zoom ein.</translation>
    </message>
    <message>
        <source>An external shutter (Periphery) occupies both ports and locks the lists. Choices that the model lacks are not offered.</source>
        <translation>Ein externer Shutter (Peripherie) belegt beide Anschlüsse und sperrt die Listen. Was das Modell nicht hat, wird nicht angeboten.</translation>
    </message>
    <message>
        <source>The overlay is written to the camera, but never read back: set it before each write. Switching the gimbal remote control on turns it off and locks it.</source>
        <translation>Das Overlay wird in die Kamera geschrieben, aber nie zurückgelesen: Stellen Sie es vor jedem Schreiben ein. Das Einschalten der Gimbal-Fernsteuerung schaltet es aus und sperrt es.</translation>
    </message>
    <message>
        <source>Locked, and off, while the isotherms are off.</source>
        <translation>Gesperrt und aus, solange die Isothermen aus sind.</translation>
    </message>
    <message>
        <source>Isotherms use all three thresholds, min / max the lower and the upper one, automatic isotherms none. Those that are not used are locked.</source>
        <translation>Isothermen verwenden alle drei Schwellen, Min / Max die untere und die obere, automatische Isothermen keine. Nicht verwendete sind gesperrt.</translation>
    </message>
    <message>
        <source>Switching the gimbal remote control on sets this to absolute values, switching it off to high/low.</source>
        <translation>Das Einschalten der Gimbal-Fernsteuerung setzt dies auf absolute Werte, das Ausschalten auf hoch/niedrig.</translation>
    </message>
    <message>
        <source>After a change the settings preview is locked until the next connection, for the camera has to be switched off and on. Changing to 60 Hz hides the JPEG quality and sets it to 75 %.</source>
        <translation>Nach einem Wechsel ist die Einstellungsvorschau bis zur nächsten Verbindung gesperrt, denn die Kamera muss aus- und wieder eingeschaltet werden. Der Wechsel auf 60 Hz verbirgt die JPEG-Qualität und setzt sie auf 75 %.</translation>
    </message>
    <message>
        <source>Offset and factor are sent together by the button. They belong to no configuration: neither reading nor saving keeps them.</source>
        <translation>Offset und Faktor werden mit der Schaltfläche zusammen gesendet. Sie gehören zu keiner Konfiguration: Weder Lesen noch Speichern bewahrt sie.</translation>
    </message>
    <message>
        <source>One second after a change the whole form is sent to the connected camera as live settings, without being stored. It is not sent if the main window sent another command within the two seconds before: if the camera does not follow, Settings-Preview sends the form.</source>
        <translation>Eine Sekunde nach einer Änderung wird das ganze Formular als Live-Einstellungen an die verbundene Kamera gesendet, ohne gespeichert zu werden. Es wird nicht gesendet, wenn das Hauptfenster in den zwei Sekunden davor einen anderen Befehl gesendet hat: Folgt die Kamera nicht, sendet die Einstellungsvorschau das Formular.</translation>
    </message>
    <message>
        <source>The shutter speed is shown with shutter priority only.</source>
        <translation>Die Belichtungszeit ist nur bei Zeitvorwahl sichtbar.</translation>
    </message>
    <message>
        <source>Manual unlocks the focus position, automatic locks it, and once after zoom leaves it as it is.</source>
        <translation>Manuell gibt die Fokusposition frei, automatisch sperrt sie, und einmal nach Zoom lässt sie, wie sie ist.</translation>
    </message>
    <message>
        <source>Auto adjust focus fills in what the camera has found. It is stored by writing the settings.</source>
        <translation>Das automatische Justieren trägt ein, was die Kamera gefunden hat. Gespeichert wird es durch das Schreiben der Einstellungen.</translation>
    </message>
    <message>
        <source>The camera tells the adjustment that it has found, and the field above shows it. Write the settings to store it.</source>
        <translation>Die Kamera meldet die Justierung, die sie gefunden hat, und das Feld darüber zeigt sie. Schreiben Sie die Einstellungen, um sie zu speichern.</translation>
    </message>
    <message>
        <source>Derived from the HDMI table by a button below. What is edited by hand here is lost when it is derived again.</source>
        <translation>Wird mit einer Schaltfläche darunter aus der HDMI-Tabelle abgeleitet. Was hier von Hand geändert wurde, geht bei erneutem Ableiten verloren.</translation>
    </message>
    <message>
        <source>All columns are computed anew, but for those whose E in the HDMI table is 0. Nothing is sent.</source>
        <translation>Alle Spalten werden neu berechnet, außer denen, deren E in der HDMI-Tabelle 0 ist. Gesendet wird nichts.</translation>
    </message>
    <message>
        <source>For a Blend Zoom you are asked before the tables are replaced; the serial number is taken over at once. Files are for the Blend Zoom only.</source>
        <translation>Bei einer Blend Zoom werden Sie gefragt, bevor die Tabellen ersetzt werden; die Seriennummer wird sofort übernommen. Dateien gibt es nur für die Blend Zoom.</translation>
    </message>
    <message>
        <source>The whole calibration of the unit is replaced. Keep a copy before you change it; the buttons for files do so for a Blend Zoom.</source>
        <translation>Die ganze Kalibrierung des Geräts wird ersetzt. Bewahren Sie eine Kopie auf, bevor Sie sie ändern; bei einer Blend Zoom tun das die Schaltflächen für Dateien.</translation>
    </message>
    <message>
        <source>The data file (.dat) can be read again, the report (.txt) is for reading and printing. For the Blend Zoom only.</source>
        <translation>Die Datendatei (.dat) kann wieder gelesen werden, der Bericht (.txt) ist zum Lesen und Drucken. Nur für die Blend Zoom.</translation>
    </message>
    <message>
        <source>The column of the factory settings is that of the zoom factor which is selected in the main window, tab Visible Light Camera.</source>
        <translation>Die Spalte der Werkseinstellungen ist die des Zoomfaktors, der im Hauptfenster auf der Registerkarte Tageslichtkamera gewählt ist.</translation>
    </message>
</context>
</TS>
