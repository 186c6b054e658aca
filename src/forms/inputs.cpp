#include "forms/inputs.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QSlider>
#include <QValidator>

#include <utility>

namespace {

/// The line edit of a number box. The box's own check would take a separator of groups, of which
/// "1.600" has one in German and "1,6" in English, for nothing at all.
class NumberText : public QValidator
{
public:
    NumberText(QAbstractSpinBox *box, QLineEdit *edit) : QValidator(edit), m_box(box) {}

    State validate(QString &text, int &position) const override
    {
        const QLocale locale = m_box->locale();
        const QChar mark = locale.decimalPoint();
        const bool eitherMark = locale.language() == QLocale::German;
        const auto [begin, end] = number(text);
        for (int i = begin; i < end; ++i) {
            const QChar c = text.at(i);
            if (c == mark)
                continue;
            const bool otherMark = c == QLatin1Char('.') || c == QLatin1Char(',');
            if (otherMark && eitherMark)
                text[i] = mark;
            else if (otherMark || c.isSpace() || c == locale.groupSeparator())
                return Invalid;
        }
        return m_box->validate(text, position);
    }

private:
    /// Where the number stands between prefix, suffix and blanks.
    std::pair<int, int> number(const QString &text) const
    {
        const QString prefix = m_box->property("prefix").toString();
        const QString suffix = m_box->property("suffix").toString();
        int begin = text.startsWith(prefix) ? prefix.size() : 0;
        int end = text.size() - (text.endsWith(suffix) ? suffix.size() : 0);
        while (begin < end && text.at(begin).isSpace())
            ++begin;
        while (begin < end && text.at(end - 1).isSpace())
            --end;
        return {begin, end};
    }

    QAbstractSpinBox *m_box;
};

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
            return QObject::eventFilter(watched, event);
        event->ignore(); // so that it is offered to the page
        return true;
    }
};

bool turnsWithTheWheel(const QWidget *widget)
{
    return qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QComboBox *>(widget) || qobject_cast<const QSlider *>(widget);
}

} // namespace

namespace inputs {

QLocale locale()
{
    const QLocale desktop;
    QLocale locale = desktop.language() == QLocale::German
                         ? QLocale(QLocale::German, desktop.country())
                         : QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

void guardAll(QWidget *window)
{
    const auto children = window->findChildren<QWidget *>();
    for (QWidget *child : children)
        guard(child);
}

void guard(QWidget *input)
{
    if (!turnsWithTheWheel(input))
        return;
    if (input->focusPolicy() == Qt::WheelFocus)
        input->setFocusPolicy(Qt::StrongFocus);
    input->installEventFilter(new WheelGuard(input));
    if (auto *box = qobject_cast<QAbstractSpinBox *>(input))
        if (auto *edit = box->findChild<QLineEdit *>())
            edit->setValidator(new NumberText(box, edit));
}

} // namespace inputs
