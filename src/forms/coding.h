#pragma once

#include <QMetaEnum>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QSlider;
class QSpinBox;
class QWidget;

/// Both directions between a widget and the number that a record field holds.
struct Coding
{
    QWidget *widget = nullptr; ///< null for a number that no widget shows
    /// Shows a received number; empty if the field is only written.
    std::function<void(qint64)> show;
    /// The number to store, later truncated to the width of the field; nothing leaves the field as
    /// it is.
    std::function<std::optional<qint64>()> store;
};

/// The codings that occur more than once. A combo box without a current item stores -1, that is all
/// bits set; a number that a combo box has no item for leaves it unchanged, except for `index`.
namespace coding {

/// List position; one outside the list selects nothing.
Coding index(QComboBox *box);
/// 0 or 1; any number but 0 checks the box.
Coding check(QCheckBox *box);
/// The number of the box plus `offset`.
Coding value(QSpinBox *box, int offset = 0);
Coding value(QSlider *slider);
/// The number of the box times `scale`; the remainder is dropped both ways.
Coding scaled(QSpinBox *box, uint scale);
/// The number of the box times 100, truncated toward zero in double precision.
Coding hundredths(QDoubleSpinBox *box);
/// The unsigned decimal number that the text spells, 0 if it spells none.
Coding numberText(QComboBox *box);
Coding numberText(QLineEdit *edit);
/// As above, signed.
Coding signedNumberText(QComboBox *box);
/// Value of the key that the text spells, -1 if it is no key.
Coding key(QComboBox *box, const QMetaEnum &keys);
/// As above, but the text may spell several keys joined by "|", whose values are ORed.
Coding joinedKeys(QComboBox *box, const QMetaEnum &keys);
/// `numbers[i]` for list position i. Any other number or position writes the line that the
/// function makes of the position or number to standard error and changes nothing.
Coding mapped(QComboBox *box, std::vector<int> numbers,
              std::function<QString(qint64)> unknownNumber,
              std::function<QString(int)> unknownIndex);
/// `coding` without its reading direction.
Coding writeOnly(Coding coding);

/// Sony FCB focus adjustment: 6 bits of magnitude below 11 (plus) or 01 (minus); 0 is 0.
Coding sonyFcbFocus(QSpinBox *box);

} // namespace coding

/// Focus adjustment, -63..63, that a Sony FCB focus byte stands for.
int SonyFCBFocusvalue2int(quint8 byte);
/// Focus byte of an adjustment of -31..31.
quint8 sonyFCBFocusbyte(int value);
