#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QLocale>
#include <QString>
#include <QStringList>

/// Lets a program speak the language of its user: its own texts, those of the framework, and those
/// of Qt.
///
/// Without it, the framework speaks English. The texts of the framework lie beside the library, as
/// "ktutility_de.qm"; docs/translations.md lists them by context. A program that has a text of the
/// framework among its own, in the framework's context, is heard first.
///
/// For a user in Taiwan, files of "zh_Hant_TW" and "zh_TW" come before one of "zh_Hant", and that
/// before one of "zh". "expenses_en.qm" is taken where no other language is known: it may have the
/// singular forms that texts with a number have in English, too.
///
/// Install them before anything is shown: the words of durations stay as they are once they have
/// been used. For the main thread.
///
/// \code
/// QApplication application(argc, argv);
/// KTTranslations::install(u":/i18n/expenses"_s);    // expenses_de.qm among the resources
/// \endcode
class KTUTILITY_EXPORT KTTranslations
{
public:
    KTTranslations() = delete;

    /// Has the application speak the first language of a locale that it knows, in place of what was
    /// installed before. Each of the three goes by itself: where a program has no texts in Dutch, the
    /// framework and Qt may still have them. English is known by all.
    /// \param program the path of the program's own texts without the language ("…/expenses" for
    /// "…/expenses_de.qm"); nil for none.
    /// \return the language of the program's texts now, or of the framework's if the program has
    /// none: "de", "pt_BR"; "en" if they stay as they are in the sources.
    static QString install(const QString &program = {}, const QLocale &locale = QLocale());
    /// Has the application speak English again.
    static void remove();

    /// The languages that the framework has texts in besides English: "de", "fr", "ja".
    static QStringList languages();
};
