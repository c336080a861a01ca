#include "KTOptionsKeys.h"

using namespace Qt::StringLiterals;

const QString kKTFieldOption_currencyType = u"currencyType"_s;
const QString kKTFieldOption_dateStyle = u"dateStyle"_s;
const QString kKTFieldOption_decimalPlaces = u"decimalPlaces"_s;
const QString kKTFieldOption_displayDate = u"displayDate"_s;
const QString kKTFieldOption_displayThousandsSeparator = u"displayThousandsSeparator"_s;
const QString kKTFieldOption_displayTime = u"displayTime"_s;
const QString kKTFieldOption_displayYear = u"displayYear"_s;
const QString kKTFieldOption_formatNegativeUsingParens = u"formatNegativeUsingParens"_s;
const QString kKTFieldOption_highlightNegative = u"highlightNegative"_s;
const QString kKTFieldOption_inputOrder = u"inputOrder"_s;
const QString kKTFieldOption_timeStyle = u"timeStyle"_s;
const QString kKTFieldOption_useAbbreviations = u"useAbbreviations"_s;
