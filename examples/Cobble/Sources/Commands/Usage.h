#pragma once

#include <QString>

/// How cobble is used, in lines for a terminal.
QString usageText();
