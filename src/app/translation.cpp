#include "app/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

// Outside any namespace: the collection is in a static library, where nothing else refers to it.
static void initResources()
{
    Q_INIT_RESOURCE(translations);
}

namespace {

bool installFile(const QString &name, const QString &directory)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!translator->load(name, directory))
        return false;
    return QCoreApplication::installTranslator(translator.release());
}

} // namespace

namespace translation {

bool install(const QLocale &locale)
{
    if (locale.language() != QLocale::German)
        return false; // nothing is opened: the start costs no more than without translations
    initResources();
    installFile(QStringLiteral("qtbase_de"),
                QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    return installFile(QStringLiteral("quorvix_de"), QStringLiteral(":/translations"));
}

} // namespace translation
