#pragma once

class QLocale;

namespace translation {

/// Shows the texts of the program in German if that is the language of the locale, and Qt's own,
/// such as those of its buttons, if they are installed. In any other locale all stays English. Call
/// it once, before the first window. True if the texts are German then.
bool install(const QLocale &locale);

} // namespace translation
