#include "ColumnChoice.h"

#include "ImportRequest.h"
#include "Text/Reasons.h"

using namespace Qt::StringLiterals;

namespace {
/// Finds the choices for headers.
class Finder
{
public:
    Finder(const QStringList &headers, const ColumnChoices &choices)
        : _headers(headers), _choices(choices)
    {
    }

    ColumnChoice &operator[](const QString &header)
    {
        const qsizetype column = _headers.indexOf(header);
        if (column < 0 && _outcome)
            _outcome = Failure{Reasons::tr("there is no column '%1'").arg(header)};
        return _choices[column];
    }
    Outcome<ColumnChoices> choices() const
    {
        if (!_outcome)
            return _outcome.failure();
        return _choices;
    }

private:
    const QStringList &_headers;
    ColumnChoices _choices;
    Outcome<> _outcome;
};
} // namespace

Outcome<ColumnChoices> columnChoicesOf(const ImportRequest &request, const QStringList &headers)
{
    Finder choices(headers, request.columns);
    for (auto type = request.types.begin(); type != request.types.end(); ++type)
        choices[type.key()].type = type.value();
    for (const QString &header : request.mediaHeaders) {
        choices[header].type = FieldType::Media;
        choices[header].isTrusted = true;
    }
    for (auto told = request.conventions.begin(); told != request.conventions.end(); ++told)
        choices[told.key()].conventions = told.value();
    for (auto header = request.newHeaders.begin(); header != request.newHeaders.end(); ++header)
        choices[header.key()].header = header.value();
    for (const QString &header : request.skipped)
        choices[header].isSkipped = true;
    return choices.choices();
}
