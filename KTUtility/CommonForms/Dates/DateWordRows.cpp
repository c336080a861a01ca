#include "DateWordRows_p.h"

#include "DateWords_p.h"
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Dates/NaturalLanguageTable_p.h>

#include <QStringList>

#include <optional>

using namespace KTPrivate;

namespace {
using Kind = DateWord::Kind;
using NaturalKind = NaturalLanguageMeaning::Kind;

struct Row
{
    const char *language;
    const char16_t *words;
    DateWord meaning;
};

struct OrdinalRow
{
    const char *language;
    const char16_t *suffixes;
};

constexpr int Day = int(NSDayCalendarUnit);
constexpr int Hour = int(NSHourCalendarUnit);
constexpr int Minute = int(NSMinuteCalendarUnit);
constexpr int Month = int(NSMonthCalendarUnit);
constexpr int Second = int(NSSecondCalendarUnit);
constexpr int Week = int(NSWeekCalendarUnit);
constexpr int Year = int(NSYearCalendarUnit);

/// The hours from one to before another, over midnight if need be.
constexpr int hours(int from, int to)
{
    int mask = 0;
    for (int hour = from; hour != to; hour = (hour + 1) % 24)
        mask |= 1 << hour;
    return mask;
}

/// A mark before times that stands before nothing else.
constexpr DateWord ClockMark{Kind::TimeMark, 0, 1};

constexpr Row Rows[] = {
    // One, as it is said before units
    {"es", u"un|una|uno", {Kind::Number, 1}},
    {"it", u"un|una|uno|un'", {Kind::Number, 1}},
    {"pt", u"um|uma", {Kind::Number, 1}},
    {"ca", u"un|una", {Kind::Number, 1}},
    {"nl", u"een|één", {Kind::Number, 1}},
    {"sv", u"en|ett", {Kind::Number, 1}},
    {"da", u"en|et", {Kind::Number, 1}},
    {"nb", u"en|ei|et|ett", {Kind::Number, 1}},
    {"ro", u"un|o", {Kind::Number, 1}},
    // Oxford English Dictionary
    {"en", u"the|of|on|day|this|in the", {Kind::Filler}},
    {"en", u"and|more", {Kind::Joiner}},
    {"en", u"at|@", ClockMark},
    {"en", u"by", {Kind::TimeMark}},
    {"en", u"o'clock|oclock", {Kind::HourMark, 0, 1}},
    {"en", u"hr|hrs|hours", {Kind::HourMark}},
    {"en", u"noon|midday", {Kind::HourName, 12}},
    {"en", u"midnight", {Kind::HourName, 0}},
    {"en", u"tonight", {Kind::DayPeriod, hours(18, 4), 1}},
    {"en", u"a", {Kind::HalfOfDay, MorningHours, 1}},
    {"en", u"p", {Kind::HalfOfDay, AfternoonHours, 1}},
    {"en", u"sept", {Kind::Month, 9}},
    {"en", u"tues", {Kind::Weekday, 3}},
    {"en", u"weds", {Kind::Weekday, 4}},
    {"en", u"thur|thurs", {Kind::Weekday, 5}},
    {"en", u"ad|ce", {Kind::Era, 1}},
    {"en", u"tmrw|tmr", {Kind::RelativeDay, 1}},
    {"en", u"hence|after now", {Kind::AmountSuffix, 0, 1}},
    {"en", u"before now|back", {Kind::AmountSuffix, 0, -1}},
    {"en", u"within|after", {Kind::AmountPrefix, 0, 1}},
    {"en", u"sec|secs", {Kind::Unit, Second}},
    {"en", u"min|mins", {Kind::Unit, Minute}},
    {"en", u"hr|hrs", {Kind::Unit, Hour}},
    {"en", u"wk|wks", {Kind::Unit, Week}},
    {"en", u"mth|mths", {Kind::Unit, Month}},
    {"en", u"yr|yrs", {Kind::Unit, Year}},
    // Duden
    {"de", u"den|der|dem|des|am|vom|im|und|ca|etwa|so", {Kind::Filler}},
    {"de", u"um|so um", ClockMark},
    {"de", u"gegen|ab", {Kind::TimeMark}},
    {"de", u"uhr|h", {Kind::HourMark}},
    {"de", u"früh|in der früh|am morgen|frühmorgens", {Kind::DayPeriod, hours(2, 11)}},
    {"de", u"vormittags|am vormittag|vormittag", {Kind::DayPeriod, hours(8, 12)}},
    {"de", u"mittags|am mittag", {Kind::DayPeriod, hours(11, 14)}},
    {"de", u"nachmittags|am nachmittag|nachmittag", {Kind::DayPeriod, hours(12, 18)}},
    {"de", u"abends|am abend|abend", {Kind::DayPeriod, hours(17, 0)}},
    {"de", u"nachts|in der nacht", {Kind::DayPeriod, hours(21, 6)}},
    {"de", u"mittag", {Kind::HourName, 12}},
    {"de", u"mitternacht", {Kind::HourName, 0}},
    {"de", u"jänner|jaenner", {Kind::Month, 1}},
    {"de", u"feber", {Kind::Month, 2}},
    {"de", u"maerz|mrz", {Kind::Month, 3}},
    {"de", u"sonnabend", {Kind::Weekday, 7}},
    {"de", u"uebermorgen", {Kind::RelativeDay, 2}},
    {"de", u"stunde|stunden|std", {Kind::Unit, Hour}},
    {"de", u"zuvor|her", {Kind::AmountSuffix, 0, -1}},
    {"de", u"später", {Kind::AmountSuffix, 0, 1}},
    // Dictionnaire de l'Académie française
    {"fr", u"le|la|du|de|des|l'|d'|ce|vers|environ|et|en|au", {Kind::Filler}},
    {"fr", u"à|a|vers|à partir de", {Kind::TimeMark}},
    {"fr", u"h|heure|heures|hr|hrs", {Kind::HourMark}},
    {"fr", u"mn|min|minutes|minute", {Kind::MinuteMark}},
    {"fr", u"midi", {Kind::HourName, 12}},
    {"fr", u"minuit", {Kind::HourName, 0}},
    {"fr", u"matin|du matin|au matin|le matin", {Kind::DayPeriod, hours(4, 12)}},
    {"fr", u"après-midi|après midi|l'après-midi", {Kind::DayPeriod, hours(12, 18)}},
    {"fr", u"soir|du soir|le soir", {Kind::DayPeriod, hours(17, 0)}},
    {"fr", u"avant hier", {Kind::RelativeDay, -2}},
    {"fr", u"heure|heures|h", {Kind::Unit, Hour}},
    {"fr", u"plus tard", {Kind::AmountSuffix, 0, 1}},
    {"fr", u"plus tôt|auparavant", {Kind::AmountSuffix, 0, -1}},
    {"fr", u"d'ici|sous", {Kind::AmountPrefix, 0, 1}},
    // Diccionario de la lengua española
    {"es", u"el|la|los|las|de|del|al|día|en|y|por|el día", {Kind::Filler}},
    {"es", u"a la|a las|las|a eso de las|sobre las|hacia las", ClockMark},
    {"es", u"a", {Kind::TimeMark}},
    {"es", u"h|hs|hrs|hora|horas", {Kind::HourMark}},
    {"es", u"mediodía|al mediodía", {Kind::HourName, 12}},
    {"es", u"medianoche|a medianoche", {Kind::HourName, 0}},
    {"es", u"por la mañana|en la mañana|de la mañana", {Kind::DayPeriod, hours(4, 12)}},
    {"es", u"por la tarde|en la tarde|de la tarde", {Kind::DayPeriod, hours(12, 21)}},
    {"es", u"por la noche|en la noche|de la noche", {Kind::DayPeriod, hours(19, 4)}},
    {"es", u"setiembre|set", {Kind::Month, 9}},
    {"es", u"antes de ayer|antier", {Kind::RelativeDay, -2}},
    {"es", u"en|dentro de|después de", {Kind::AmountPrefix, 0, 1}},
    {"es", u"atrás", {Kind::AmountSuffix, 0, -1}},
    {"es", u"después|más tarde", {Kind::AmountSuffix, 0, 1}},
    // Vocabulário Ortográfico da Língua Portuguesa
    {"pt", u"o|a|os|as|de|do|da|no|na|em|dia|e", {Kind::Filler}},
    {"pt", u"às|as", ClockMark},
    {"pt", u"à|a|ao", {Kind::TimeMark}},
    {"pt", u"h|hora|horas|hs|hrs", {Kind::HourMark}},
    {"pt", u"meio-dia|meio dia|ao meio-dia", {Kind::HourName, 12}},
    {"pt", u"meia-noite|meia noite|à meia-noite", {Kind::HourName, 0}},
    {"pt", u"de manhã|pela manhã|da manhã|manhã", {Kind::DayPeriod, hours(4, 12)}},
    {"pt", u"à tarde|de tarde|da tarde|pela tarde|tarde", {Kind::DayPeriod, hours(12, 19)}},
    {"pt", u"à noite|de noite|da noite|pela noite|noite", {Kind::DayPeriod, hours(18, 4)}},
    {"pt", u"segunda feira|2ª feira|2ª-feira|2a feira|2a-feira", {Kind::Weekday, 2}},
    {"pt", u"terça feira|3ª feira|3ª-feira|3a feira|3a-feira", {Kind::Weekday, 3}},
    {"pt", u"quarta feira|4ª feira|4ª-feira|4a feira|4a-feira", {Kind::Weekday, 4}},
    {"pt", u"quinta feira|5ª feira|5ª-feira|5a feira|5a-feira", {Kind::Weekday, 5}},
    {"pt", u"sexta feira|6ª feira|6ª-feira|6a feira|6a-feira", {Kind::Weekday, 6}},
    {"pt", u"depois de amanhã", {Kind::RelativeDay, 2}},
    {"pt", u"anteontem|antes de ontem", {Kind::RelativeDay, -2}},
    {"pt", u"daqui a|dentro de|em", {Kind::AmountPrefix, 0, 1}},
    {"pt", u"faz", {Kind::AmountPrefix, 0, -1}},
    {"pt", u"atrás", {Kind::AmountSuffix, 0, -1}},
    {"pt", u"depois|mais tarde", {Kind::AmountSuffix, 0, 1}},
    // Vocabolario Treccani
    {"it", u"il|lo|la|i|di|del|dello|della|dell'|l'|nel|e|giorno|in|verso", {Kind::Filler}},
    {"it", u"alle|alle ore|ore|per le|dalle|verso le|h", ClockMark},
    {"it", u"all'|a", {Kind::TimeMark}},
    {"it", u"h|ore|ora", {Kind::HourMark}},
    {"it", u"mezzogiorno", {Kind::HourName, 12}},
    {"it", u"mezzanotte", {Kind::HourName, 0}},
    {"it", u"mattina|mattino|stamattina|di mattina|del mattino", {Kind::DayPeriod, hours(4, 12)}},
    {"it",
     u"pomeriggio|di pomeriggio|del pomeriggio|nel pomeriggio",
     {Kind::DayPeriod, hours(12, 18)}},
    {"it", u"sera|di sera|della sera", {Kind::DayPeriod, hours(17, 0)}},
    {"it", u"stasera", {Kind::DayPeriod, hours(17, 0), 1}},
    {"it", u"notte|di notte|della notte", {Kind::DayPeriod, hours(21, 6)}},
    {"it", u"stanotte", {Kind::DayPeriod, hours(21, 6), 1}},
    {"it", u"l'altroieri|altroieri|ieri l'altro|avantieri", {Kind::RelativeDay, -2}},
    {"it", u"dopodomani", {Kind::RelativeDay, 2}},
    {"it", u"fra|tra|entro", {Kind::AmountPrefix, 0, 1}},
    {"it", u"fa|prima|or sono", {Kind::AmountSuffix, 0, -1}},
    {"it", u"dopo|più tardi", {Kind::AmountSuffix, 0, 1}},
    // Euskaltzaindiaren Hiztegia
    {"eu", u"(e)ko|eko|ko|(a)|a|(e)an|an|(r)en", {Kind::Filler}},
    // Diccionari de la llengua catalana
    {"ca", u"el|la|els|les|de|del|d'|l'|dia|i|en", {Kind::Filler}},
    {"ca", u"a la|a les|les", ClockMark},
    {"ca", u"a", {Kind::TimeMark}},
    {"ca", u"h|hora|hores", {Kind::HourMark}},
    {"ca", u"en|d'aquí a|d'aquí|dins de", {Kind::AmountPrefix, 0, 1}},
    {"ca", u"fa", {Kind::AmountPrefix, 0, -1}},
    {"ca", u"abans-d'ahir|abans d'ahir", {Kind::RelativeDay, -2}},
    {"ca", u"demà passat", {Kind::RelativeDay, 2}},
    // Van Dale
    {"nl", u"de|het|van|op|en|dag|rond", {Kind::Filler}},
    {"nl", u"om|klokslag", ClockMark},
    {"nl", u"rond|vanaf", {Kind::TimeMark}},
    {"nl", u"uur|u|h|uren", {Kind::HourMark}},
    {"nl",
     u"'s ochtends|'s morgens|ochtends|'s voormiddags|in de ochtend",
     {Kind::DayPeriod, hours(4, 12)}},
    {"nl", u"'s middags|'s namiddags|in de middag|middag", {Kind::DayPeriod, hours(12, 18)}},
    {"nl", u"'s avonds|in de avond|avond", {Kind::DayPeriod, hours(17, 0)}},
    {"nl", u"vanavond", {Kind::DayPeriod, hours(17, 0), 1}},
    {"nl", u"'s nachts|in de nacht|nacht", {Kind::DayPeriod, hours(22, 6)}},
    {"nl", u"middernacht", {Kind::HourName, 0}},
    {"nl", u"in|binnen", {Kind::AmountPrefix, 0, 1}},
    {"nl", u"eergisteren", {Kind::RelativeDay, -2}},
    {"nl", u"overmorgen", {Kind::RelativeDay, 2}},
    {"nl", u"uren", {Kind::Unit, Hour}},
    {"nl", u"later", {Kind::AmountSuffix, 0, 1}},
    // Den Danske Ordbog
    {"da", u"den|d|og|af|på|i", {Kind::Filler}},
    {"da", u"kl|klokken", ClockMark},
    {"da", u"ved", {Kind::TimeMark}},
    {"da", u"morgen|om morgenen", {Kind::DayPeriod, hours(4, 10)}},
    {"da", u"overmorgen|i overmorgen", {Kind::RelativeDay, 2}},
    {"da", u"forgårs|i forgårs", {Kind::RelativeDay, -2}},
    // Bokmålsordboka
    {"nb", u"den|d|og|av|på|i", {Kind::Filler}},
    {"nb", u"kl|klokka|klokken", ClockMark},
    {"nb", u"ved", {Kind::TimeMark}},
    {"nb", u"overmorgen|i overmorgen", {Kind::RelativeDay, 2}},
    {"nb", u"forgårs|i forgårs", {Kind::RelativeDay, -2}},
    {"nn", u"den|d|og|av|på|i", {Kind::Filler}},
    {"nn", u"kl|klokka|klokken", ClockMark},
    {"no", u"den|d|og|av|på|i", {Kind::Filler}},
    {"no", u"kl|klokka|klokken", ClockMark},
    // Svenska Akademiens ordlista
    {"sv", u"den|och|av|på|d", {Kind::Filler}},
    {"sv", u"kl|klockan", ClockMark},
    {"sv", u"vid", {Kind::TimeMark}},
    {"sv", u"på morgonen|morgonen", {Kind::DayPeriod, hours(4, 10)}},
    {"sv", u"på eftermiddagen|eftermiddagen", {Kind::DayPeriod, hours(12, 18)}},
    {"sv", u"på kvällen|kvällen", {Kind::DayPeriod, hours(17, 0)}},
    {"sv", u"ikväll", {Kind::DayPeriod, hours(17, 0), 1}},
    {"sv", u"idag", {Kind::RelativeDay, 0}},
    {"sv", u"imorgon|imorron|i morron", {Kind::RelativeDay, 1}},
    {"sv", u"igår", {Kind::RelativeDay, -1}},
    {"sv", u"förrgår|i förrgår", {Kind::RelativeDay, -2}},
    {"sv", u"övermorgon|i övermorgon", {Kind::RelativeDay, 2}},
    // Kielitoimiston sanakirja
    {"fi", u"klo|kello", ClockMark},
    {"fi", u"noin", {Kind::TimeMark}},
    {"fi", u"päivänä|ja", {Kind::Filler}},
    {"fi", u"päästä|kuluttua", {Kind::AmountSuffix, 0, 1}},
    {"fi", u"sitten", {Kind::AmountSuffix, 0, -1}},
    {"fi", u"aamulla|aamupäivällä", {Kind::DayPeriod, hours(4, 12)}},
    {"fi", u"iltapäivällä", {Kind::DayPeriod, hours(12, 18)}},
    {"fi", u"illalla", {Kind::DayPeriod, hours(17, 0)}},
    {"fi", u"toissapäivänä", {Kind::RelativeDay, -2}},
    {"fi", u"ylihuomenna", {Kind::RelativeDay, 2}},
    // Wielki słownik języka polskiego
    {"pl", u"dnia|w|z|i|roku|rok|r", {Kind::Filler}},
    {"pl", u"o|o godz|o godzinie|godz|godzina", ClockMark},
    {"pl", u"ok|około", {Kind::TimeMark}},
    {"pl", u"pia|pią|piąt", {Kind::Weekday, 6}},
    {"pl", u"wto", {Kind::Weekday, 3}},
    {"pl", u"czwa|czwa", {Kind::Weekday, 5}},
    {"pl", u"majem", {Kind::Month, 5}},
    {"pl", u"rano", {Kind::DayPeriod, hours(4, 10)}},
    {"pl", u"wieczorem|wieczór", {Kind::DayPeriod, hours(17, 0)}},
    {"pl", u"po południu|popołudniu", {Kind::DayPeriod, hours(12, 18)}},
    {"pl", u"przedwczoraj", {Kind::RelativeDay, -2}},
    {"pl", u"pojutrze", {Kind::RelativeDay, 2}},
    // Internetová jazyková příručka
    {"cs", u"dne|a|roku", {Kind::Filler}},
    {"cs", u"v|ve|o", {Kind::TimeMark}},
    {"cs", u"hod|hodin|hodiny|h", {Kind::HourMark}},
    {"cs", u"ráno|dopoledne", {Kind::DayPeriod, hours(4, 12)}},
    {"cs", u"odpoledne", {Kind::DayPeriod, hours(12, 18)}},
    {"cs", u"večer", {Kind::DayPeriod, hours(18, 0)}},
    {"sk", u"dňa|a|roku", {Kind::Filler}},
    {"sk", u"o|v", {Kind::TimeMark}},
    {"sk", u"hod|hodín|h", {Kind::HourMark}},
    // Hrvatski jezični portal; Slovar slovenskega knjižnega jezika
    {"hr", u"dana|i|godine|god|g", {Kind::Filler}},
    {"hr", u"u|oko", {Kind::TimeMark}},
    {"hr", u"h|sati|sata|sat", {Kind::HourMark}},
    {"hr", u"ujutro|ujutru", {Kind::DayPeriod, hours(4, 12)}},
    {"hr", u"popodne|poslijepodne", {Kind::DayPeriod, hours(12, 18)}},
    {"hr", u"navečer|uvečer", {Kind::DayPeriod, hours(18, 0)}},
    {"hr", u"prekjučer", {Kind::RelativeDay, -2}},
    {"hr", u"prekosutra", {Kind::RelativeDay, 2}},
    {"sr", u"у|u", {Kind::TimeMark}},
    {"bs", u"u", {Kind::TimeMark}},
    {"sl", u"dne", {Kind::Filler}},
    {"sl", u"ob", ClockMark},
    // Большой толковый словарь русского языка
    {"ru", u"г|года|и|на|дня|числа|еще", {Kind::Filler}},
    {"ru", u"в|во|около|к", {Kind::TimeMark}},
    {"ru", u"ч|час|часа|часов", {Kind::HourMark}},
    {"ru", u"мин|минут", {Kind::MinuteMark}},
    {"ru", u"вск", {Kind::Weekday, 1}},
    {"ru", u"пнд", {Kind::Weekday, 2}},
    {"ru", u"втр", {Kind::Weekday, 3}},
    {"ru", u"срд", {Kind::Weekday, 4}},
    {"ru", u"чтв", {Kind::Weekday, 5}},
    {"ru", u"птн", {Kind::Weekday, 6}},
    {"ru", u"сбт", {Kind::Weekday, 7}},
    {"ru", u"позавчера", {Kind::RelativeDay, -2}},
    {"ru", u"послезавтра", {Kind::RelativeDay, 2}},
    {"ru", u"спустя", {Kind::AmountSuffix, 0, 1}},
    // Словник української мови
    {"uk", u"р|року|і|й|на|дня|числа", {Kind::Filler}},
    {"uk", u"вчора", {Kind::RelativeDay, -1}},
    {"uk", u"позавчора", {Kind::RelativeDay, -2}},
    {"uk", u"післязавтра", {Kind::RelativeDay, 2}},
    {"uk", u"о|об|у|в|близько", {Kind::TimeMark}},
    {"uk", u"год|година|годині|години|годин", {Kind::HourMark}},
    {"uk", u"через|за", {Kind::AmountPrefix, 0, 1}},
    {"uk", u"тому|тому назад", {Kind::AmountSuffix, 0, -1}},
    // Речник на българския език
    {"bg", u"г|година|и|на", {Kind::Filler}},
    {"bg", u"в|във|около", {Kind::TimeMark}},
    {"bg", u"ч|часа|час", {Kind::HourMark}},
    {"be", u"у|а", {Kind::TimeMark}},
    {"mk", u"во", {Kind::TimeMark}},
    // Λεξικό της κοινής νεοελληνικής
    {"el", u"στις|στη|στην|στο|ώρα", {Kind::TimeMark}},
    {"el", u"του|της|το|την|τη|η|ο|και|τις|στις|στο|στην", {Kind::Filler}},
    {"el", u"το πρωί|πρωί", {Kind::DayPeriod, hours(4, 12)}},
    {"el", u"το απόγευμα|απόγευμα", {Kind::DayPeriod, hours(14, 20)}},
    {"el", u"το βράδυ|βράδυ", {Kind::DayPeriod, hours(18, 1)}},
    {"el", u"δευτ", {Kind::Weekday, 2}},
    {"el", u"προχθές|προχτές", {Kind::RelativeDay, -2}},
    {"el", u"χθες|χτες", {Kind::RelativeDay, -1}},
    {"el", u"μεθαύριο", {Kind::RelativeDay, 2}},
    // A magyar nyelv értelmező szótára
    {"hu", u"a|az|és|év|évi", {Kind::Filler}},
    {"hu", u"óra|órakor|h|-kor", {Kind::HourMark}},
    {"hu", u"perc|perckor", {Kind::MinuteMark}},
    {"hu", u"délelőtt", {Kind::HalfOfDay, MorningHours}},
    {"hu", u"délután", {Kind::HalfOfDay, AfternoonHours}},
    {"hu", u"reggel", {Kind::DayPeriod, hours(4, 10)}},
    {"hu", u"este", {Kind::DayPeriod, hours(17, 0)}},
    {"hu", u"délben", {Kind::HourName, 12}},
    {"hu", u"tegnapelőtt", {Kind::RelativeDay, -2}},
    {"hu", u"holnapután", {Kind::RelativeDay, 2}},
    // Dicționarul explicativ al limbii române
    {"ro", u"pe|de|din|și|ziua|data", {Kind::Filler}},
    {"ro", u"la ora|ora|orele", ClockMark},
    {"ro", u"la", {Kind::TimeMark}},
    {"ro", u"acum", {Kind::AmountPrefix, 0, -1}},
    {"ro", u"în|peste", {Kind::AmountPrefix, 0, 1}},
    {"ro", u"dimineața", {Kind::DayPeriod, hours(4, 12)}},
    {"ro", u"după-amiaza|după amiaza|după-amiază", {Kind::DayPeriod, hours(12, 18)}},
    {"ro", u"seara", {Kind::DayPeriod, hours(18, 0)}},
    {"ro", u"alaltăieri", {Kind::RelativeDay, -2}},
    {"ro", u"poimâine", {Kind::RelativeDay, 2}},
    // Türk Dil Kurumu, Güncel Türkçe Sözlük
    {"tr", u"saat|saat tam", ClockMark},
    {"tr", u"günü|ve|tarihinde|'da|'de|'ta|'te|da|de|ta|te|'nda|'nde|nda|nde|yılı", {Kind::Filler}},
    {"tr", u"sonra", {Kind::AmountSuffix, 0, 1}},
    {"tr", u"önce|evvel", {Kind::AmountSuffix, 0, -1}},
    {"tr", u"akşam|akşamı|akşamleyin", {Kind::DayPeriod, hours(17, 0)}},
    {"tr", u"sabah|sabahleyin", {Kind::DayPeriod, hours(4, 12)}},
    {"tr", u"gece|geceleyin", {Kind::DayPeriod, hours(21, 6)}},
    {"tr", u"öğle|öğlen", {Kind::DayPeriod, hours(11, 15)}},
    {"tr", u"önceki gün|evvelki gün", {Kind::RelativeDay, -2}},
    {"tr", u"öbür gün", {Kind::RelativeDay, 2}},
    // Từ điển tiếng Việt
    {"vi", u"ngày|năm|mùng|mồng", {Kind::Filler}},
    {"vi", u"lúc|vào lúc", ClockMark},
    {"vi", u"vào", {Kind::TimeMark}},
    {"vi", u"giờ|h", {Kind::HourMark}},
    {"vi", u"phút", {Kind::MinuteMark}},
    {"vi", u"sáng", {Kind::DayPeriod, hours(1, 11)}},
    {"vi", u"trưa", {Kind::DayPeriod, hours(11, 14)}},
    {"vi", u"chiều", {Kind::DayPeriod, hours(13, 19)}},
    {"vi", u"tối", {Kind::DayPeriod, hours(18, 0)}},
    {"vi", u"đêm", {Kind::DayPeriod, hours(21, 4)}},
    // Kamus Besar Bahasa Indonesia
    {"id", u"tanggal|tgl|dan|pada", {Kind::Filler}},
    {"id", u"pukul|jam|pkl", ClockMark},
    {"ms", u"pukul|jam", ClockMark},
    // Standard Hebrew, Arabic, Persian, Hindi and Thai dictionaries
    {"he", u"בשעה", ClockMark},
    {"he", u"ב|ב-", {Kind::TimeMark}},
    {"he", u"ב|ב-|ה-|ה|יום", {Kind::Filler}},
    {"he", u"ראשון|יום א", {Kind::Weekday, 1}},
    {"he", u"שני|יום ב", {Kind::Weekday, 2}},
    {"he", u"שלישי|יום ג", {Kind::Weekday, 3}},
    {"he", u"רביעי|יום ד", {Kind::Weekday, 4}},
    {"he", u"חמישי|יום ה", {Kind::Weekday, 5}},
    {"he", u"שישי|יום ו", {Kind::Weekday, 6}},
    {"he", u"שבת", {Kind::Weekday, 7}},
    {"ar", u"الساعة|عند الساعة", ClockMark},
    {"ar", u"في", {Kind::TimeMark}},
    {"fa", u"ساعت", ClockMark},
    {"hi", u"को|की|के|का", {Kind::Filler}},
    {"hi", u"बजे|बजकर", {Kind::HourMark}},
    {"th", u"วันที่|ที่|ปี|พ.ศ.", {Kind::Filler}},
    {"th", u"เวลา", ClockMark},
    {"th", u"น.|นาฬิกา", {Kind::HourMark}},
    // 大辞林
    {"ja", u"の|に|は|で", {Kind::Filler}},
    {"ja", u"時", {Kind::HourMark}},
    {"ja", u"分", {Kind::MinuteMark}},
    {"ja", u"秒", {Kind::SecondMark}},
    {"ja", u"半", {Kind::HalfHour, 30}},
    {"ja", u"年", {Kind::YearMark}},
    {"ja", u"月", {Kind::MonthMark}},
    {"ja", u"日", {Kind::DayMark}},
    {"ja", u"朝", {Kind::DayPeriod, hours(4, 11)}},
    {"ja", u"夜|晩", {Kind::DayPeriod, hours(18, 4)}},
    {"ja", u"今夜|今晩", {Kind::DayPeriod, hours(18, 4), 1}},
    {"ja", u"夕方", {Kind::DayPeriod, hours(15, 19)}},
    {"ja", u"正午", {Kind::HourName, 12}},
    {"ja", u"元年", {Kind::YearMark, 1}},
    {"ja", u"週間", {Kind::Unit, Week}},
    // 표준국어대사전
    {"ko", u"에|날|의", {Kind::Filler}},
    {"ko", u"시", {Kind::HourMark}},
    {"ko", u"분", {Kind::MinuteMark}},
    {"ko", u"초", {Kind::SecondMark}},
    {"ko", u"반", {Kind::HalfHour, 30}},
    {"ko", u"낮", {Kind::DayPeriod, hours(11, 18)}},
    {"ko", u"밤", {Kind::DayPeriod, hours(20, 4)}},
    {"ko", u"년", {Kind::YearMark}},
    {"ko", u"월", {Kind::MonthMark}},
    {"ko", u"일", {Kind::DayMark}},
    {"ko", u"이전|전", {Kind::AmountSuffix, 0, -1}},
    {"ko", u"이후|후|뒤", {Kind::AmountSuffix, 0, 1}},
    {"ko", u"주|주일", {Kind::Unit, Week}},
    {"ko", u"아침", {Kind::DayPeriod, hours(4, 11)}},
    {"ko", u"오늘날|금일", {Kind::RelativeDay, 0}},
    {"ko", u"모레", {Kind::RelativeDay, 2}},
    {"ko", u"그저께|그제", {Kind::RelativeDay, -2}},
    // 现代汉语词典
    {"zh", u"的", {Kind::Filler}},
    {"zh", u"点|點|时|時|点钟|點鐘|点整|點整", {Kind::HourMark}},
    {"zh", u"分|分钟|分鐘", {Kind::MinuteMark}},
    {"zh", u"秒", {Kind::SecondMark}},
    {"zh", u"半", {Kind::HalfHour, 30}},
    {"zh", u"一刻", {Kind::HalfHour, 15}},
    {"zh", u"三刻", {Kind::HalfHour, 45}},
    {"zh", u"年", {Kind::YearMark}},
    {"zh", u"月", {Kind::MonthMark}},
    {"zh", u"日|号|號", {Kind::DayMark}},
    {"zh", u"星期|个星期|個星期|个礼拜|週", {Kind::Unit, Week}},
    {"zh", u"个小时|個小時|钟头|小时|小時", {Kind::Unit, Hour}},
    {"zh", u"天|日", {Kind::Unit, Day}},
    {"zh", u"个月|個月", {Kind::Unit, Month}},
    {"zh", u"前|之前|以前", {Kind::AmountSuffix, 0, -1}},
    {"zh", u"后|後|之后|之後|以后|以後", {Kind::AmountSuffix, 0, 1}},
    {"zh", u"周日|週日|礼拜日|禮拜日|星期天|礼拜天", {Kind::Weekday, 1}},
    {"zh", u"晚上|晚", {Kind::DayPeriod, hours(18, 4)}},
    {"zh", u"中午|正午", {Kind::DayPeriod, hours(11, 14)}},
    {"zh", u"早上|早晨|早", {Kind::DayPeriod, hours(4, 11)}},
    {"zh", u"凌晨", {Kind::DayPeriod, hours(0, 6)}},
    {"zh", u"今晚", {Kind::DayPeriod, hours(18, 4), 1}},
    {"zh", u"大后天|大後天", {Kind::RelativeDay, 3}},
};

/// Endings of ordinals; those of ICU's spelled-out rules are added beside them.
constexpr OrdinalRow Ordinals[] = {
    {"", u"º|ª|°|.º|.ª"},
    {"eo", u"-a|a"},
    {"en", u"st|nd|rd|th|'st|'nd|'rd|'th"},
    {"de", u"te|ter|ten|tes|sten|ste|ster"},
    {"fr", u"er|e|ème|eme|re|nd"},
    {"es", u"o|ero|er"},
    {"pt", u"o|a"},
    {"ca", u"r|n|t|è|er"},
    {"nl", u"e|de|ste"},
    {"da", u"te|de|ende"},
    {"sv", u":e|:a|e|a"},
    {"hu", u"e|a|je|ja|i|én|án|jén|ján|-e|-a|-je|-ja|-i|-én|-án|-jén|-ján|.-e|.-a|.-i"},
    {"ru", u"-го|-е|-ое|-ого|-й|-я|го|е|ое|ого"},
    {"uk", u"-го|-е|-те|-ше|-ого|-й|го|е"},
    {"bg", u"-ви|-ри|-ти|-ми|-и|ви|ри|ти|ми|-то"},
    {"el", u"η|ης|ην|ος|-η"},
    {"pl", u"-go|-ego|-y|-ty|go"},
    {"ro", u"-lea|-a"},
    {"tr", u"'i|'si|'u|'inci|inci|nci|'uncu"},
};

/// What a word of the tables for natural language means here; nothing if it has no use.
std::optional<DateWord> wordOf(const NaturalLanguageMeaning &meaning)
{
    switch (meaning.kind) {
    case NaturalKind::Day:
        return DateWord{Kind::RelativeDay, meaning.value};
    case NaturalKind::Unit:
        return DateWord{Kind::Unit, meaning.value};
    case NaturalKind::InFuture:
        return DateWord{Kind::AmountPrefix, 0, 1};
    case NaturalKind::Suffix:
        return DateWord{Kind::AmountSuffix, 0, meaning.sign};
    case NaturalKind::Number:
        return DateWord{Kind::Number, meaning.value};
    case NaturalKind::RelativeUnit:
        return DateWord{Kind::RelativeUnit, meaning.value, meaning.sign};
    default:
        return std::nullopt;
    }
}

template<typename Take>
void forEachWord(const char16_t *words, const Take &take)
{
    for (const QString &word : QString::fromUtf16(words).split(u'|'))
        take(word);
}

void addNaturalLanguage(DateWords &words, const QString &language)
{
    for (const NaturalLanguageRow &row : naturalLanguageTable()) {
        const std::optional<DateWord> meaning = wordOf(row.meaning);
        if (meaning && language == QLatin1String(row.language))
            forEachWord(row.words, [&](const QString &word) { words.add(word, *meaning); });
    }
}
} // namespace

void KTPrivate::addDateWordRows(DateWords &words, const QString &language)
{
    addNaturalLanguage(words, language);
    for (const Row &row : Rows) {
        if (language == QLatin1String(row.language))
            forEachWord(row.words, [&](const QString &word) { words.add(word, row.meaning); });
    }
    for (const OrdinalRow &row : Ordinals) {
        if (*row.language == '\0' || language == QLatin1String(row.language))
            forEachWord(row.suffixes, [&](const QString &suffix) { words.addOrdinal(suffix); });
    }
}
