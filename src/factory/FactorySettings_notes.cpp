#include "diagnostics/escaped.h"
#include "factory/FactorySettings.h"
#include "ui_FactorySettings.h"

#include <QLabel>

namespace {

QLabel *note(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->hide();
    return label;
}

} // namespace

void FactorySettings::setUpNotes()
{
    m_serialNote = note("lbSerialNote", this);
    m_ui->verticalLayout->insertWidget(1, m_serialNote);
    m_fileOutcome = note("lbFileOutcome", this);
    m_ui->verticalLayout->addWidget(m_fileOutcome);
    // A number that is typed is the operator's own.
    connect(m_ui->leSerialNumber, &QLineEdit::textEdited, this,
            [this] { noteCutSerialNumber(QString()); });
}

void FactorySettings::noteCutSerialNumber(const QString &whole)
{
    m_cutSerialNumber = whole;
    m_serialNote->setVisible(!whole.isEmpty());
    m_serialNote->setText(whole.isEmpty() ? QString()
                                          : tr("The unit's serial number %1 is longer than the "
                                               "field: only what the field shows is written.")
                                                .arg(diagnostics::escaped(whole)));
}

void FactorySettings::showFileOutcome(const QString &outcome)
{
    m_fileOutcome->setText(outcome);
    m_fileOutcome->show();
    emit fileOutcome(QString(outcome).replace(QLatin1Char('\n'), QStringLiteral(" \u00B7 ")));
}
