#include "diagnostics/escaped.h"

namespace diagnostics {

bool isControl(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString escaped(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar character : text) {
        const ushort code = character.unicode();
        if (!isControl(character))
            line += character;
        else if (code < 0x100)
            line += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        else
            line += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
    }
    return line;
}

} // namespace diagnostics
