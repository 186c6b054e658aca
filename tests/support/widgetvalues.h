#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

/// The value of any input of the form as text, so that a table can list them: a list's position,
/// "1" or "0" of a check box, the number of a box or slider, the text of a line edit.
namespace widgetvalues {

inline QString value(QWidget *widget)
{
    if (auto *box = qobject_cast<QComboBox *>(widget))
        return QString::number(box->currentIndex());
    if (auto *box = qobject_cast<QCheckBox *>(widget))
        return QString::number(int(box->isChecked()));
    if (auto *box = qobject_cast<QSpinBox *>(widget))
        return QString::number(box->value());
    if (auto *box = qobject_cast<QDoubleSpinBox *>(widget))
        return QString::number(box->value());
    if (auto *slider = qobject_cast<QSlider *>(widget))
        return QString::number(slider->value());
    if (auto *edit = qobject_cast<QLineEdit *>(widget))
        return edit->text();
    qFatal("%s has no value", qPrintable(widget->objectName()));
}

inline void setValue(QWidget *widget, const QString &value)
{
    if (auto *box = qobject_cast<QComboBox *>(widget))
        box->setCurrentIndex(value.toInt());
    else if (auto *box = qobject_cast<QCheckBox *>(widget))
        box->setChecked(value.toInt());
    else if (auto *box = qobject_cast<QSpinBox *>(widget))
        box->setValue(value.toInt());
    else if (auto *box = qobject_cast<QDoubleSpinBox *>(widget))
        box->setValue(value.toDouble());
    else if (auto *slider = qobject_cast<QSlider *>(widget))
        slider->setValue(value.toInt());
    else if (auto *edit = qobject_cast<QLineEdit *>(widget))
        edit->setText(value);
    else
        qFatal("%s has no value", qPrintable(widget->objectName()));
}

} // namespace widgetvalues
