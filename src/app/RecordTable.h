#pragma once

#include "forms/coding.h"
#include "records/LittleEndian.h"

#include <QByteArray>

#include <cstring>
#include <vector>

/// One field of a record: where it lies and how it meets the form.
struct RecordRow
{
    int offset = 0;
    int size = 0;
    QWidget *widget = nullptr;                     ///< null for bytes that no widget shows
    std::function<void(const uchar *record)> show; ///< record to form; may be empty
    std::function<void(uchar *record)> store;      ///< form to record
};

/// The fields of a record in the order in which they fill the form. The order matters: setting a
/// widget may fire an interlock that presets later ones, which the later rows then overwrite.
using RecordTable = std::vector<RecordRow>;

inline void recordToForm(const RecordTable &table, const uchar *record)
{
    for (const RecordRow &row : table)
        if (row.show)
            row.show(record);
}

inline void formToRecord(const RecordTable &table, uchar *record)
{
    for (const RecordRow &row : table)
        row.store(record);
}

/// Row of a number of wire type `T` (quint8, le_u16, ...) at `offset`.
template <class T>
RecordRow numberRow(std::size_t offset, const Coding &coding)
{
    RecordRow row{static_cast<int>(offset), sizeof(T), coding.widget, nullptr, nullptr};
    if (coding.show)
        row.show = [offset, show = coding.show](const uchar *record) {
            T number;
            std::memcpy(&number, record + offset, sizeof number);
            show(number);
        };
    row.store = [offset, store = coding.store](uchar *record) {
        if (const std::optional<qint64> stored = store()) {
            const T number = static_cast<T>(*stored);
            std::memcpy(record + offset, &number, sizeof number);
        }
    };
    return row;
}
