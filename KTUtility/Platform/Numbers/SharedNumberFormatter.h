#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <memory>

class NSNumberFormatter;

namespace KTPrivate {
/// A number formatter inside another formatter, which takes no memory of its own as long as another
/// one with the same settings is there: all of them share one, until one is changed.
///
/// Those that are shared never change, and any thread may use them. One owner uses a
/// SharedNumberFormatter in one thread at a time.
///
/// \code
/// SharedNumberFormatter formatter(std::make_unique<NSNumberFormatter>());
/// formatter.edit().setLenient(true);                       // its own as long as it is being set
/// formatter->stringForObjectValue(5);                      // shared from here on
/// \endcode
class KTUTILITY_EXPORT SharedNumberFormatter
{
public:
    /// None yet.
    SharedNumberFormatter() = default;
    explicit SharedNumberFormatter(std::unique_ptr<NSNumberFormatter> formatter);
    ~SharedNumberFormatter() = default;
    SharedNumberFormatter(SharedNumberFormatter &&) noexcept = default;
    SharedNumberFormatter &operator=(SharedNumberFormatter &&) noexcept = default;

    const NSNumberFormatter &operator*() const;
    const NSNumberFormatter *operator->() const { return &**this; }

    /// The formatter, to change it at once: what is done later changes those of others.
    NSNumberFormatter &edit();
    /// Shares it with others, as the next use would. To be called when all is set.
    void share() const;

    /// A function that sets something in a formatter, depending on nothing but a text.
    using Change = void (*)(NSNumberFormatter &formatter, const QString &text);

    /// The same formatter with a change, which is made once for all that share it.
    SharedNumberFormatter changed(Change change, const QString &text = {}) const;

private:
    struct Record;
    class Table;

    explicit SharedNumberFormatter(std::shared_ptr<Record> record);

    mutable std::shared_ptr<Record> _record;
};
} // namespace KTPrivate
