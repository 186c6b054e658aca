// Records from the camera: only valid ones reach the form, and the form then makes a valid record.
//
// Input: one byte with the kind of the record (bits 0 and 1), whether the Blend Zoom is the active
// device (bit 2) and whether modal windows are answered with Ok (bit 3); then the record.

#include "desktop.h"
#include "formrecords.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    Desktop &desktop = Desktop::instance();
    static auto *window = Desktop::lasting<MainWindow>();

    Input input(bytes, size);
    const auto mode = input.number<quint8>();
    const QByteArray record = configuration::fromInput(mode & 3, input);
    window->slotDeviceChanged(mode & 4 ? KovoDevice_QXBlendZoom : KovoDevice_QXBlend);
    desktop.answer(mode & 8);

    const QByteArray blendBefore = configuration::ofForm(*window, false);
    const QByteArray zoomBefore = configuration::ofForm(*window, true);
    const bool taken = window->parseUnknownControlStruct(records::payload(record));
    judge(taken == configuration::isValid(record), "valid records are taken, no others");

    const QByteArray blend = configuration::ofForm(*window, false);
    const QByteArray zoom = configuration::ofForm(*window, true);
    if (taken) {
        judge(configuration::isValid(blend), "the form makes a valid Blend record");
        judge(configuration::isValid(zoom), "the form makes a valid Blend Zoom record");
        const bool isZoom = configuration::isZoom(record);
        const QByteArray made = isZoom ? zoom : blend;
        judge(window->parseUnknownControlStruct(records::payload(made)),
              "the form's own record is taken");
        judgeEqual(configuration::lasting(made).toHex(),
                   configuration::lasting(configuration::ofForm(*window, isZoom)).toHex(),
                   "filled with its own record, the form makes");
    } else {
        judgeEqual(blendBefore.toHex(), blend.toHex(), "after an invalid record the form makes");
        judgeEqual(zoomBefore.toHex(), zoom.toHex(), "after an invalid record the form makes");
    }
    Desktop::settle();
    return 0;
}
