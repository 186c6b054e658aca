#pragma once

#include "records/Layout.h"

#include <QString>

/// Consecutive constants.
template <class T>
struct Span
{
    const T *first = nullptr;
    int count = 0;

    constexpr const T *begin() const { return first; }
    constexpr const T *end() const { return first + count; }
    constexpr int size() const { return count; }
};

/// A field that something else presets.
struct Preset
{
    const char *field; ///< name; a form may show fields that the model's record lacks
    qint64 stored;     ///< the number of the choice
    bool locked;       ///< nobody changes it as long as the preset holds
};

/// All that differs from one camera model to the other. A model whose records are not known has
/// nothing but names.
struct Model
{
    quint32 key;            ///< by which the camera and its records name it
    const char *longName;   ///< "Quorvix Blend"
    const char *shortName;  ///< "QX Blend"; null without records
    const char *optionName; ///< on command lines: "blend"

    quint32 oldestFirmware = 0; ///< date as the decimal number yyyymmdd
    const char *outdatedFirmware =
        nullptr; ///< what to tell the operator of an older one, to be translated
    const char *otherVersion = nullptr; ///< line about a record of another version

    const Layout *configuration = nullptr; ///< null without records, like all that follows
    const Layout *factory = nullptr;
    const Vocabulary *extensionModes[2] = {}; ///< of either extension port

    // Object names of widgets that not all models show, in the order in which they are shown.
    Span<const char *> formGroups{};    ///< of the main window
    Span<const char *> factoryGroups{}; ///< of the factory settings

    // A gimbal remote control takes the SBUS channels and the trigger over.
    Span<Preset> gimbalPresets{};
    bool gimbalUnlocksSerialPort = false;
    /// What a trigger by SBUS or PPM presets.
    Span<Preset> sbusTriggerPresets{};

    constexpr bool hasRecords() const { return configuration != nullptr; }
};

namespace models {

/// All models: 2.0, Blend, Blend Zoom.
Span<Model> all();

/// Null if there is no such model.
const Model *ofKey(quint32 key);
/// In any case: "quorvix blend".
const Model *ofLongName(const QString &name);
const Model *ofOptionName(const QString &name);

} // namespace models
