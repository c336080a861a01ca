#include "KTInternational.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Text/NSLocale.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

using namespace Qt::StringLiterals;

const QString KTInternationalSeparatorsFileName = u"separators"_s;
const QString KTInternationalSeparatorsFileType = u"plist"_s;
const QString KTInternationalSeparatorsListKey = u"List"_s;
const QString KTInternationalDefaultCSVSeparator = u","_s;
const QString KTInternationalSecondDefaultCSVSeparator = u";"_s;
const QString KTInternationalCSVIllegalCharacters = u",;\"\r\n\t "_s;
const QString KTInternationalEmptyString = u""_s;
const QString KTInternationalJapaneseLanguageCode = u"jp"_s;
const QString kJapaneseContryCode = u"JP"_s;

namespace {
KTInternational *sharedInstance = nullptr;

void fail(const QString &method, int line, const QString &description)
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        method, NSAssertionSubject::instanceOf(u"KTInternational"_s), u"KTInternational"_s, line,
        description);
}

/// A value of the list that must be a text.
QString textOf(const QVariant &value, const QString &key)
{
    if (value.typeId() != QMetaType::QString)
        NSException::raise(
            NSInvalidArgumentException,
            NSString::stringWithFormat(u"%@ is no text in the separators under %@", value, key));
    return value.toString();
}

/// The texts of a list.
QStringList textsOf(const QVariant &list)
{
    if (NSObject::isNil(list))
        return {};
    if (list.typeId() != QMetaType::QVariantList)
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(u"%@ is no list in the separators under %@",
                                                      list, KTInternationalSeparatorsListKey));
    const QVariantList entries = list.toList();
    QStringList texts;
    for (const QVariant &entry : entries)
        texts += textOf(entry, KTInternationalSeparatorsListKey);
    return texts;
}

NSCharacterSet makeIllegalCSVCharacterSet()
{
    QStringList alternates;
    const QString separator =
        KTInternational::instance()->localizedCSVSeparatorAndAlternates(&alternates);
    const QString characters =
        KTInternationalCSVIllegalCharacters + separator + alternates.join(QString());
    return NSCharacterSet::characterSetWithCharactersInString(characters);
}
} // namespace

KTInternational *KTInternational::instance()
{
    // It registers itself.
    return sharedInstance ? sharedInstance : new KTInternational;
}

KTInternational::KTInternational()
{
    if (sharedInstance)
        fail(u"init"_s, 29, u"Should not be creating multiple KTInternational objects."_s);
    else
        sharedInstance = this;
}

KTInternational::~KTInternational()
{
    if (sharedInstance == this)
        sharedInstance = nullptr;
}

QString KTInternational::separatorsPath() const
{
    return NSBundle::mainBundle().pathForResource(KTInternationalSeparatorsFileName,
                                                  KTInternationalSeparatorsFileType);
}

std::optional<QVariantMap> KTInternational::separatorsDict()
{
    if (_separators)
        return _separators;
    const QString path = separatorsPath();
    if (NSFileManager::fileExistsAtPath(path))
        _separators = NSDictionary::dictionaryWithContentsOfFile(path);
    return _separators;
}

/// The separator of the current locale; nil if the list does not know it.
QString KTInternational::separatorFor(const QVariantMap &list) const
{
    const NSLocale locale = NSLocale::currentLocale();
    const QString &language = locale.languageCode();
    for (const QString &key :
         {NSString::stringWithFormat(u"%@_%@", language, locale.countryCode()), language}) {
        if (list.contains(key))
            return textOf(list.value(key), key);
    }
    return {};
}

QString KTInternational::localizedCSVSeparatorAndAlternates(QStringList *alternates)
{
    if (!alternates)
        fail(u"localizedCSVSeparatorAndAlternates:"_s, 75,
             u"KTInternational: localizedCSVSeparatorAndAlternates: alternates param "
             "can't be nil"_s);
    QString result = KTInternationalDefaultCSVSeparator;
    if (!alternates)
        return result;
    try {
        const std::optional<QVariantMap> list = separatorsDict();
        if (!list)
            return result;
        const QString separator = separatorFor(*list);
        if (separator.isNull())
            return result;
        result = separator;
        *alternates += textsOf(list->value(KTInternationalSeparatorsListKey));
        alternates->removeAll(result);
    } catch (const NSException &exception) {
        KTLog(kLog_invalid, 4, u"%@", exception.reason());
    } catch (const std::exception &exception) {
        KTLog(kLog_invalid, 4, u"%s", exception.what());
    } catch (...) {
        KTLog(kLog_invalid, 4, u"unknown exception");
    }
    return result;
}

const NSCharacterSet &KTInternational::illegalCSVCharacterSet()
{
    static const NSCharacterSet set = makeIllegalCSVCharacterSet();
    return set;
}

NSStringEncoding KTInternational::stringEncodingForCurrentLanguage()
{
    const NSLocale locale = NSLocale::currentLocale();
    const bool isThatObject = NSObject::isIdenticalTo(
        QVariant(locale.languageCode()), QVariant(KTInternationalJapaneseLanguageCode));
    return isThatObject ? NSShiftJISStringEncoding : NSMacOSRomanStringEncoding;
}
