#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// "NSCocoaErrorDomain": errors of the platform's own classes.
KTUTILITY_EXPORT extern const QString NSCocoaErrorDomain;

/// The code of a text that a formatter cannot read.
inline constexpr int NSFormattingError = 2048;

/// Why something failed, for a caller that asks. A default-constructed error is nil: no error.
///
/// \code
/// NSError error;
/// if (!formatter.getObjectValue(&value, text, &range, &error) && !error.isNil())
///     label->setText(error.localizedDescription());
/// \endcode
class KTUTILITY_EXPORT NSError
{
public:
    NSError() = default;
    /// An error with a text for people.
    NSError(const QString &domain, int code, const QString &localizedDescription)
        : _domain(domain), _code(code), _localizedDescription(localizedDescription)
    {
    }

    /// Whether there is no error.
    bool isNil() const { return _domain.isNull(); }

    /// Who defines the code.
    const QString &domain() const { return _domain; }
    /// Which of the domain's errors it is.
    int code() const { return _code; }
    /// One sentence for people.
    const QString &localizedDescription() const { return _localizedDescription; }
    /// Everything, for logs: `Error Domain=NSCocoaErrorDomain Code=2048 "…"`; nil for nil.
    QString description() const;

    friend bool operator==(const NSError &, const NSError &) = default;

private:
    QString _domain;
    int _code = 0;
    QString _localizedDescription;
};
