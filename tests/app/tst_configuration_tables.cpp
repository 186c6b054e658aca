#include "app/configuration_tables.h"
#include "ui_MainWindow.h"

#include <QMainWindow>
#include <QTest>

#include <memory>

/// The two record tables against the documented layouts: fields in the order in which they fill the
/// form, and a place for every byte.
class TestConfigurationTables : public QObject
{
    Q_OBJECT

    struct Field
    {
        int offset;
        int size;
        const char *widget;
    };
    using Fields = std::vector<Field>;
    struct Range
    {
        int offset;
        int size;
    };
    using Ranges = std::vector<Range>;

    /// What a record is made of, apart from the program.
    struct Layout
    {
        RecordTable (*table)(const Ui::MainWindow &);
        int size;
        Fields shown;     ///< in the order in which a record fills the form
        Fields writeOnly; ///< from the form, never shown
        Ranges fixed;     ///< header included
        Ranges unset;
        Range crc;
    };

    static Layout blend();
    static Layout blendZoom();

    static Layout layout()
    {
        QFETCH(bool, zoom);
        return zoom ? blendZoom() : blend();
    }
    RecordTable table() { return layout().table(m_ui); }

    static QString text(const Fields &fields)
    {
        QStringList lines;
        for (const Field &field : fields)
            lines << QStringLiteral("%1+%2 %3").arg(field.offset).arg(field.size).arg(field.widget);
        return lines.join('\n');
    }

    /// Rows with a widget, in table order, as `text` writes them.
    template <class Predicate>
    static QString text(const RecordTable &table, Predicate wanted)
    {
        QStringList lines;
        for (const RecordRow &row : table)
            if (row.widget && wanted(row))
                lines << QStringLiteral("%1+%2 %3")
                             .arg(row.offset)
                             .arg(row.size)
                             .arg(row.widget->objectName());
        return lines.join('\n');
    }

    /// How often each byte of the record is owned.
    static std::vector<int> owners(const RecordTable &table, int size)
    {
        std::vector<int> owners(static_cast<std::size_t>(size));
        for (const RecordRow &row : table)
            for (int i = row.offset; i < row.offset + row.size; ++i)
                ++owners.at(static_cast<std::size_t>(i));
        return owners;
    }

    std::unique_ptr<QMainWindow> m_window;
    Ui::MainWindow m_ui;

private slots:
    void init()
    {
        m_window = std::make_unique<QMainWindow>();
        m_ui.setupUi(m_window.get());
    }
    void cleanup() { m_window.reset(); }

    void shownFieldsAreInThePrescribedOrder_data() { layouts(); }
    void shownFieldsAreInThePrescribedOrder()
    {
        const auto shown = [](const RecordRow &row) { return bool(row.show); };
        QCOMPARE(text(table(), shown), text(layout().shown));
    }

    void someFieldsAreOnlyWritten_data() { layouts(); }
    void someFieldsAreOnlyWritten()
    {
        const auto writeOnly = [](const RecordRow &row) { return !row.show; };
        QCOMPARE(text(table(), writeOnly), text(layout().writeOnly));
    }

    void everyRowIsWritten_data() { layouts(); }
    void everyRowIsWritten()
    {
        for (const RecordRow &row : table())
            QVERIFY2(row.store, qPrintable(QString::number(row.offset)));
    }

    void bytesWithoutAWidgetAreTheFixedOnes_data() { layouts(); }
    void bytesWithoutAWidgetAreTheFixedOnes()
    {
        const Layout expected = layout();
        std::vector<int> fixed(static_cast<std::size_t>(expected.size));
        for (const Range &range : expected.fixed)
            for (int i = range.offset; i < range.offset + range.size; ++i)
                fixed.at(static_cast<std::size_t>(i)) = 1;

        RecordTable rows;
        for (const RecordRow &row : table())
            if (!row.widget)
                rows.push_back(row);
        QVERIFY(owners(rows, expected.size) == fixed);
        for (const RecordRow &row : rows)
            QVERIFY2(!row.show, qPrintable(QString::number(row.offset)));
    }

    void noByteIsOwnedTwice_data() { layouts(); }
    void noByteIsOwnedTwice()
    {
        const std::vector<int> counts = owners(table(), layout().size);
        for (std::size_t i = 0; i < counts.size(); ++i)
            QVERIFY2(counts[i] <= 1, qPrintable(QStringLiteral("byte %1").arg(i)));
    }

    void rowsAndUnsetBytesAndCrcMakeUpTheRecord_data() { layouts(); }
    void rowsAndUnsetBytesAndCrcMakeUpTheRecord()
    {
        const Layout expected = layout();
        std::vector<int> counts = owners(table(), expected.size);
        Ranges rest = expected.unset;
        rest.push_back(expected.crc);
        for (const Range &range : rest)
            for (int i = range.offset; i < range.offset + range.size; ++i)
                ++counts.at(static_cast<std::size_t>(i));
        for (std::size_t i = 0; i < counts.size(); ++i)
            QVERIFY2(counts[i] == 1,
                     qPrintable(QStringLiteral("byte %1 has %2 owners").arg(i).arg(counts[i])));
    }

private:
    static void layouts()
    {
        QTest::addColumn<bool>("zoom");
        QTest::newRow("Blend") << false;
        QTest::newRow("Blend Zoom") << true;
    }
};

TestConfigurationTables::Layout TestConfigurationTables::blend()
{
    Layout layout{blendTable, 207, {}, {}, {}, {}, {205, 2}};
    layout.shown = {
        {19, 1, "cbPeripheryGimbalrc"},
        {20, 1, "cbPeripheryGPS"},
        {21, 1, "cb_pheriphery_externalshutter_installed"},
        {22, 4, "sb_eso_heating"},
        {26, 4, "sb_eso_heatcycle"},
        {30, 4, "sb_eso_offset"},
        {34, 4, "sb_eso_shutterinterval"},
        {38, 4, "sb_eso_opt5"},
        {78, 1, "cbTriggerPinMode"},
        {79, 1, "cbTriggerFFCMode"},
        {80, 1, "cbTriggerFrameMode"},
        {67, 2, "cbFFCmode"},
        {69, 4, "sbFFCdelay"},
        {12, 4, "cbBaudrate"},
        {16, 1, "cbParity"},
        {17, 1, "cbStopBit"},
        {18, 1, "cbInverted"},
        {101, 1, "cbSbusColormap"},
        {102, 1, "cbSbusColorMapSwitchMode"},
        {103, 1, "cbSbusFFC"},
        {104, 1, "cbSbusIsotherms"},
        {105, 1, "cbSbusIsoTransparency"},
        {106, 1, "cbSbusIsoLow"},
        {107, 1, "cbSbusIsoMid"},
        {108, 1, "cbSbusIsoUp"},
        {109, 1, "cbSbusOverlay"},
        {110, 1, "cbSbusTrigger"},
        {111, 1, "cbSbusViewmode"},
        {112, 1, "cbSbusViewModeSwitchMode"},
        {113, 80, "sBTriggerLow"}, // with the table of sBTriggerHigh behind it
        {82, 1, "cBext0mode"},
        {83, 1, "cBext1mode"},
        {92, 1, "cbIsothermsState"},
        {93, 1, "cbIsothermsTransparency"},
        {94, 1, "cbIsothermSwitchMode"},
        {95, 2, "sbIsothermsLower"},
        {97, 2, "sbIsothermsMiddle"},
        {99, 2, "sbIsothermsUpper"},
        {44, 1, "cbLiveviewMode"},
        {57, 1, "cbLiveview_colormap"},
        {62, 1, "sbVLCevcorrection"},
        {63, 1, "cbVLCAdaptiveGradiationCorrection"},
        {64, 1, "cbVLCWhiteBalanceMode"},
        {65, 1, "sbVLCFocusAdjustment"},
        {74, 4, "leFrameSkip"},
    };
    layout.writeOnly = {{42, 1, "cBOverlayMode"}};
    layout.fixed = {{0, 12}, {43, 1}, {45, 12}, {58, 4}, {66, 1}, {81, 1}};
    layout.unset = {{73, 1}, {84, 8}, {193, 12}};
    return layout;
}

TestConfigurationTables::Layout TestConfigurationTables::blendZoom()
{
    Layout layout{blendZoomTable, 223, {}, {}, {}, {}, {221, 2}};
    layout.shown = {
        {19, 1, "cbPeripheryGimbalrc"},
        {20, 1, "cbPeripheryGPS"},
        {21, 1, "cb_pheriphery_externalshutter_installed"},
        {22, 4, "sb_eso_heating"},
        {26, 4, "sb_eso_heatcycle"},
        {30, 4, "sb_eso_offset"},
        {34, 4, "sb_eso_shutterinterval"},
        {38, 4, "sb_eso_opt5"},
        {220, 1, "cbTestmodesTaucore"},
        {91, 1, "cbTriggerPinMode"},
        {92, 1, "cbTriggerFFCMode"},
        {93, 1, "cbTriggerFrameMode"},
        {78, 2, "cbFFCmode"},
        {80, 4, "sbFFCdelay"},
        {12, 4, "cbBaudrate"},
        {16, 1, "cbParity"},
        {17, 1, "cbStopBit"},
        {18, 1, "cbInverted"},
        {95, 1, "cbSBUSInverSignal"},
        {116, 1, "cbSbusColormap"},
        {118, 1, "cbSbusFFC"},
        {119, 1, "cbSbusIsotherms"},
        {120, 1, "cbSbusIsoTransparency"},
        {121, 1, "cbSbusIsoLow"},
        {122, 1, "cbSbusIsoMid"},
        {123, 1, "cbSbusIsoUp"},
        {124, 1, "cbSbusOverlay"},
        {125, 1, "cbSbusTrigger"},
        {126, 1, "cbSbusViewmode"},
        {127, 1, "cbSbusZoom"},
        {128, 1, "cbSbusZoomMode"},
        {129, 80, "sBTriggerLow"}, // with the table of sBTriggerHigh behind it
        {97, 1, "cBext0mode"},
        {98, 1, "cBext1mode"},
        {107, 1, "cbIsothermsState"},
        {108, 1, "cbIsothermsTransparency"},
        {109, 1, "cbIsothermSwitchMode"},
        {110, 2, "sbIsothermsLower"},
        {112, 2, "sbIsothermsMiddle"},
        {114, 2, "sbIsothermsUpper"},
        {42, 1, "cbAnalogVideoMode"},
        {43, 1, "cbHDMIVideoMode"},
        {46, 1, "cbLiveviewMode"},
        {59, 1, "cbLiveview_colormap"},
        {62, 1, "cb_vlc_ae_mode"},
        {63, 1, "cb_vlc_ae_shutterspeed"},
        {69, 1, "cbVLCTamronFocus"},
        {70, 2, "hsTamronfocusvalue"},
        {76, 2, "sbTamronZoom"},
        {84, 1, "sbJPEGcompressionDaylight"},
        {60, 1, "cb_vlc_cam"},
        {72, 1, "cbVibrationCompensation"},
        {87, 4, "leFrameSkip"},
        {86, 1, "cbImageOutput"},
        {96, 1, "cBAdvacedSync"},
    };
    layout.writeOnly = {{44, 1, "cBOverlayMode"}, {117, 1, "cbSbusColorMapSwitchMode"}};
    layout.fixed = {{0, 12}, {45, 1}, {47, 12}, {61, 1}, {64, 4},  {68, 1}, {73, 2},
                    {75, 1}, {85, 1}, {94, 1},  {99, 8}, {209, 4}, {213, 1}};
    layout.unset = {{214, 6}};
    return layout;
}

QTEST_MAIN(TestConfigurationTables)
#include "tst_configuration_tables.moc"
