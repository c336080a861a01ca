#pragma once

#include "FuzzInput.h"

/// Typed values: read with random options in a random locale, shown, and read again.
void fuzzNumber(FuzzInput &input);
void fuzzCurrency(FuzzInput &input);
void fuzzDateTime(FuzzInput &input);
void fuzzDuration(FuzzInput &input);
void fuzzPhone(FuzzInput &input);
/// Typed values with common forms, and what a column of them decides.
void fuzzCommonForms(FuzzInput &input);
/// Every transform of names.
void fuzzNaming(FuzzInput &input);
/// Object-format strings with too few and too many arguments of all kinds.
void fuzzFormat(FuzzInput &input);
/// Base64 and archive texts, both ways.
void fuzzEncodings(FuzzInput &input);
/// Property lists of either kind, read and written.
void fuzzPropertyList(FuzzInput &input);
/// Media URLs and names, none of which leads out of the media folder.
void fuzzMedia(FuzzInput &input);
/// URLs in texts.
void fuzzURLs(FuzzInput &input);
/// Separated values as the host imports them.
void fuzzCSV(FuzzInput &input);
