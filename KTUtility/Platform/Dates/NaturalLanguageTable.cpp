#include "NaturalLanguageTable_p.h"

#include "NSCalendar.h"

using namespace KTPrivate;

namespace {
using Kind = NaturalLanguageMeaning::Kind;

constexpr int Second = int(NSSecondCalendarUnit);
constexpr int Minute = int(NSMinuteCalendarUnit);
constexpr int HourUnit = int(NSHourCalendarUnit);
constexpr int Day = int(NSDayCalendarUnit);
constexpr int Week = int(NSWeekCalendarUnit);
constexpr int Month = int(NSMonthCalendarUnit);
constexpr int Year = int(NSYearCalendarUnit);
} // namespace

const std::vector<NaturalLanguageRow> &KTPrivate::naturalLanguageTable()
{
    static const std::vector<NaturalLanguageRow> rows{
        {"en", u"at|on|the|of", {Kind::Filler}},
        {"en", u"the day after tomorrow|day after tomorrow|nextday", {Kind::Day, 2}},
        {"en", u"the day before yesterday|day before yesterday", {Kind::Day, -2}},
        {"en", u"second|seconds", {Kind::Unit, Second}},
        {"en", u"minute|minutes", {Kind::Unit, Minute}},
        {"en", u"hour|hours", {Kind::Unit, HourUnit}},
        {"en", u"day|days", {Kind::Unit, Day}},
        {"en", u"week|weeks", {Kind::Unit, Week}},
        {"en", u"month|months", {Kind::Unit, Month}},
        {"en", u"year|years", {Kind::Unit, Year}},
        {"en", u"next", {Kind::Direction, 0, 1}},
        {"en", u"last|prior|past", {Kind::Direction, 0, -1}},
        {"en", u"this", {Kind::Direction, 0, 0}},
        {"en", u"in", {Kind::InFuture}},
        {"en", u"from now|from today|later", {Kind::Suffix, 0, 1}},
        {"en", u"ago", {Kind::Suffix, 0, -1}},
        {"en", u"a|an|one", {Kind::Number, 1}},
        {"en", u"midnight", {Kind::HourName, 0}},
        {"en", u"morning|in the morning", {Kind::HourName, 10}},
        {"en", u"noon|lunch", {Kind::HourName, 12}},
        {"en", u"afternoon|in the afternoon", {Kind::HourName, 14}},
        {"en", u"dinner|evening|in the evening|tonight", {Kind::HourName, 19}},
        {"en", u"tues", {Kind::Weekday, 2}},
        {"en", u"thur|thurs", {Kind::Weekday, 4}},
        {"en", u"a.m.|a.m", {Kind::HalfOfDay, 0}},
        {"en", u"p.m.|p.m", {Kind::HalfOfDay, 1}},
        {"en", u"o'clock|o’clock", {Kind::HourMark}},
        {"en", u"sept", {Kind::Month, 9}},

        {"de", u"um|am|den|der|im|gegen", {Kind::Filler}},
        {"de", u"übermorgen", {Kind::Day, 2}},
        {"de", u"vorgestern", {Kind::Day, -2}},
        {"de", u"sekunde|sekunden", {Kind::Unit, Second}},
        {"de", u"minute|minuten", {Kind::Unit, Minute}},
        {"de", u"stunde|stunden", {Kind::Unit, HourUnit}},
        {"de", u"tag|tage|tagen", {Kind::Unit, Day}},
        {"de", u"woche|wochen", {Kind::Unit, Week}},
        {"de", u"monat|monate|monaten|monats", {Kind::Unit, Month}},
        {"de", u"jahr|jahre|jahren|jahres", {Kind::Unit, Year}},
        {"de", u"nächster|nächste|nächstes|nächsten|kommenden|kommende", {Kind::Direction, 0, 1}},
        {"de", u"letzter|letzte|letztes|letzten|vorigen|vorige", {Kind::Direction, 0, -1}},
        {"de", u"dieser|diese|dieses|diesen", {Kind::Direction, 0, 0}},
        {"de", u"in", {Kind::InFuture}},
        {"de", u"ein|eine|einem|einer|einen", {Kind::Number, 1}},
        {"de", u"mitternacht", {Kind::HourName, 0}},
        {"de", u"morgens|vormittags", {Kind::HourName, 10}},
        {"de", u"mittag|mittags", {Kind::HourName, 12}},
        {"de", u"nachmittag|nachmittags", {Kind::HourName, 14}},
        {"de", u"abend|abends|heute abend", {Kind::HourName, 19}},
        {"de", u"uhr", {Kind::HourMark}},

        {"fr", u"à|a|au|le|la|du|de|vers", {Kind::Filler}},
        {"fr", u"après-demain|après demain", {Kind::Day, 2}},
        {"fr", u"avant-hier|avant hier", {Kind::Day, -2}},
        {"fr", u"seconde|secondes", {Kind::Unit, Second}},
        {"fr", u"minute|minutes", {Kind::Unit, Minute}},
        {"fr", u"jour|jours", {Kind::Unit, Day}},
        {"fr", u"semaine|semaines", {Kind::Unit, Week}},
        {"fr", u"mois", {Kind::Unit, Month}},
        {"fr", u"an|ans|année|années", {Kind::Unit, Year}},
        {"fr", u"dans", {Kind::InFuture}},
        {"fr", u"un|une", {Kind::Number, 1}},
        {"fr", u"minuit", {Kind::HourName, 0}},
        {"fr", u"matin|du matin", {Kind::HourName, 10}},
        {"fr", u"midi", {Kind::HourName, 12}},
        {"fr", u"après-midi", {Kind::HourName, 14}},
        {"fr", u"soir|du soir|ce soir", {Kind::HourName, 19}},
        {"fr", u"h|heure|heures", {Kind::HourMark}},
        {"fr", u"min", {Kind::MinuteMark}},

        {"ja", u"に|の|から", {Kind::Filler}},
        {"ja", u"今日|本日|きょう", {Kind::Day, 0}},
        {"ja", u"明日|あした|あす", {Kind::Day, 1}},
        {"ja", u"明後日|あさって", {Kind::Day, 2}},
        {"ja", u"昨日|きのう", {Kind::Day, -1}},
        {"ja", u"一昨日|おととい", {Kind::Day, -2}},
        {"ja", u"来週", {Kind::RelativeUnit, Week, 1}},
        {"ja", u"先週", {Kind::RelativeUnit, Week, -1}},
        {"ja", u"来月", {Kind::RelativeUnit, Month, 1}},
        {"ja", u"先月", {Kind::RelativeUnit, Month, -1}},
        {"ja", u"来年", {Kind::RelativeUnit, Year, 1}},
        {"ja", u"去年|昨年", {Kind::RelativeUnit, Year, -1}},
        {"ja", u"正午", {Kind::HourName, 12}},
        {"ja", u"真夜中", {Kind::HourName, 0}},
        {"ja", u"朝", {Kind::HourName, 10}},
        {"ja", u"夕方", {Kind::HourName, 19}},
        {"ja", u"時", {Kind::HourMark}},
        {"ja", u"分", {Kind::MinuteMark}},
        {"ja", u"秒", {Kind::SecondMark}},
        {"ja", u"年", {Kind::YearMark}},
        {"ja", u"月", {Kind::MonthMark}},
        {"ja", u"日", {Kind::DayMark}},
    };
    return rows;
}
