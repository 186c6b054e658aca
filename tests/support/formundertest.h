#pragma once

#include "support/widgetvalues.h"
#include "support/windowundertest.h"

#include <QMap>

/// A fresh main window with a model chosen, edited as an operator does: interlocks follow.
class FormUnderTest : public WindowUnderTest
{
public:
    using Values = std::vector<std::pair<const char *, int>>;

    /// Key of the model; 0 for none.
    explicit FormUnderTest(quint32 model)
    {
        if (model)
            chooseModel(model);
    }

    QString value(const char *name) { return widgetvalues::value(widget(name)); }
    void set(const char *name, int value)
    {
        widgetvalues::setValue(widget(name), QString::number(value));
    }
    /// Enabled in itself, whatever its group is.
    bool enabled(const char *name)
    {
        return widget(name)->isEnabledTo(widget(name)->parentWidget());
    }

    /// Whether the inputs have these values; says which one has not.
    bool shows(const Values &expected)
    {
        for (const auto &[name, expectedValue] : expected)
            if (value(name) != QString::number(expectedValue)) {
                qWarning("%s has %s, not %d", name, qPrintable(value(name)), expectedValue);
                return false;
            }
        return true;
    }

    /// Value, enabled and hidden state of everything on the form, by its name.
    QMap<QString, QString> state()
    {
        QMap<QString, QString> state;
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_"))
                continue;
            const bool input = qobject_cast<QComboBox *>(widget) ||
                               qobject_cast<QCheckBox *>(widget) ||
                               qobject_cast<QAbstractSpinBox *>(widget) ||
                               qobject_cast<QSlider *>(widget) || qobject_cast<QLineEdit *>(widget);
            state[widget->objectName()] =
                QStringLiteral("%1 %2 %3")
                    .arg(input ? widgetvalues::value(widget) : QString(),
                         widget->isEnabledTo(widget->parentWidget()) ? "on" : "off",
                         widget->isHidden() ? "hidden" : "shown");
        }
        return state;
    }
};
