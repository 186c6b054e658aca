#pragma once

#include <QChar>
#include <QString>

#include <algorithm>

/// Text of a camera or a file name as one line that can be shown: what does not print is replaced.
inline QString printable(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint(); },
        QChar(QChar::ReplacementCharacter));
    return text;
}
