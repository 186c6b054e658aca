#include "forms/coding.h"

#include "diagnostics/diagnostics.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>

namespace coding {

Coding index(QComboBox *box)
{
    return {box, [=](qint64 number) { box->setCurrentIndex(static_cast<int>(number)); },
            [=] { return box->currentIndex(); }};
}

Coding check(QCheckBox *box)
{
    return {box, [=](qint64 number) { box->setChecked(number != 0); },
            [=] { return box->isChecked() ? 1 : 0; }};
}

Coding value(QSpinBox *box, int offset)
{
    return {box, [=](qint64 number) { box->setValue(static_cast<int>(number) - offset); },
            [=] { return box->value() + offset; }};
}

Coding value(QSlider *slider)
{
    return {slider, [=](qint64 number) { slider->setValue(static_cast<int>(number)); },
            [=] { return slider->value(); }};
}

Coding scaled(QSpinBox *box, uint scale)
{
    return {box, [=](qint64 number) { box->setValue(static_cast<int>(number / scale)); },
            [=] { return qint64(box->value()) * scale; }};
}

Coding hundredths(QDoubleSpinBox *box)
{
    return {box, [=](qint64 number) { box->setValue(static_cast<double>(number) / 100.0); },
            [=] { return static_cast<qint32>(box->value() * 100); }};
}

Coding numberText(QComboBox *box)
{
    return {box, [=](qint64 number) { box->setCurrentText(QString::number(number)); },
            [=] { return box->currentText().toUInt(); }};
}

Coding numberText(QLineEdit *edit)
{
    return {edit, [=](qint64 number) { edit->setText(QString::number(number)); },
            [=] { return edit->text().toUInt(); }};
}

Coding signedNumberText(QComboBox *box)
{
    return {box, [=](qint64 number) { box->setCurrentText(QString::number(number)); },
            [=] { return box->currentText().toInt(); }};
}

static void showKey(QComboBox *box, const QMetaEnum &keys, qint64 value)
{
    if (const char *text = keys.valueToKey(static_cast<int>(value)))
        box->setCurrentText(QString::fromLatin1(text));
}

Coding key(QComboBox *box, const QMetaEnum &keys)
{
    return {box, [=](qint64 value) { showKey(box, keys, value); },
            [=] { return keys.keyToValue(box->currentText().toLatin1().constData()); }};
}

Coding joinedKeys(QComboBox *box, const QMetaEnum &keys)
{
    return {box, [=](qint64 value) { showKey(box, keys, value); },
            [=] { return keys.keysToValue(box->currentText().toLatin1().constData()); }};
}

Coding mapped(QComboBox *box, std::vector<int> numbers,
              std::function<QString(qint64)> unknownNumber,
              std::function<QString(int)> unknownIndex)
{
    const auto show = [=](qint64 number) {
        const auto it = std::find(numbers.begin(), numbers.end(), number);
        if (it == numbers.end())
            diagnostics::err(unknownNumber(number));
        else
            box->setCurrentIndex(static_cast<int>(it - numbers.begin()));
    };
    const auto store = [=]() -> std::optional<qint64> {
        const int item = box->currentIndex();
        if (item >= 0 && item < static_cast<int>(numbers.size()))
            return numbers[static_cast<std::size_t>(item)];
        diagnostics::err(unknownIndex(item));
        return std::nullopt;
    };
    return {box, show, store};
}

Coding writeOnly(Coding coding)
{
    coding.show = nullptr;
    return coding;
}

Coding sonyFcbFocus(QSpinBox *box)
{
    return {
        box,
        [=](qint64 number) { box->setValue(SonyFCBFocusvalue2int(static_cast<quint8>(number))); },
        [=] { return sonyFCBFocusbyte(box->value()); }};
}

} // namespace coding

int SonyFCBFocusvalue2int(quint8 byte)
{
    const int magnitude = byte & 0x3F;
    switch (byte >> 6) {
    case 3:
        return magnitude;
    case 1:
        return -magnitude;
    default:
        return 0;
    }
}

quint8 sonyFCBFocusbyte(int value)
{
    if (value >= 1)
        return static_cast<quint8>(value | 0xC0);
    if (value < 0)
        return static_cast<quint8>((-value & 0x3F) | 0x40);
    return 0;
}
