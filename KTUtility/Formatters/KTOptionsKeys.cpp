#include "KTOptionsKeys.h"

const QString kKTFieldOption_currencyType = QStringLiteral("currencyType");
const QString kKTFieldOption_dateStyle = QStringLiteral("dateStyle");
const QString kKTFieldOption_decimalPlaces = QStringLiteral("decimalPlaces");
const QString kKTFieldOption_displayDate = QStringLiteral("displayDate");
const QString kKTFieldOption_displayThousandsSeparator =
    QStringLiteral("displayThousandsSeparator");
const QString kKTFieldOption_displayTime = QStringLiteral("displayTime");
const QString kKTFieldOption_displayYear = QStringLiteral("displayYear");
const QString kKTFieldOption_formatNegativeUsingParens =
    QStringLiteral("formatNegativeUsingParens");
const QString kKTFieldOption_highlightNegative = QStringLiteral("highlightNegative");
const QString kKTFieldOption_inputOrder = QStringLiteral("inputOrder");
const QString kKTFieldOption_timeStyle = QStringLiteral("timeStyle");
const QString kKTFieldOption_useAbbreviations = QStringLiteral("useAbbreviations");
