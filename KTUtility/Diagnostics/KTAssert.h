#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <span>

/// Two checks with a message: one that fails hard and one that only reports.
///
/// Both write their message to the console first, so that it is kept even where the failure is
/// caught. Use assertions for what must not happen, verifications for what the caller can live
/// with. Any thread may call them. The class has no instances.
///
/// \code
/// if (!KTAssert::KTVerifyCondition(!name.isEmpty(), u"library %d has no name", number))
///     name = fallbackName();
/// KTAssert::KTAssertWithFormat(u"unknown kind %d", kind);
/// \endcode
class KTUTILITY_EXPORT KTAssert
{
public:
    KTAssert() = delete;

    /// Writes "ASSERTION FAILED: message" to the console and hands the message to the calling
    /// thread's NSAssertionHandler, which raises NSInternalInconsistencyException. File and line
    /// that the handler reports are those of this class, always line 28, not the caller's.
    ///
    /// Deliberate: the message is the format of the handler's description, so a "%" sequence in it
    /// is formatted a second time, without arguments.
    /// \param format an object-format string for \a arguments; nil makes a nil message.
    template<typename... Arguments>
    static void KTAssertWithFormat(QStringView format, const Arguments &...arguments)
    {
        failAssertion(message(format, arguments...));
    }

    /// Returns \a condition. If it is false, "VERIFICATION FAILED: message" is written to the
    /// console; if it is true, nothing is formatted.
    /// \param withFormat an object-format string for \a arguments; nil makes a nil message.
    template<typename... Arguments>
    static bool KTVerifyCondition(bool condition, QStringView withFormat,
                                  const Arguments &...arguments)
    {
        if (!condition)
            reportVerification(message(withFormat, arguments...));
        return condition;
    }

private:
    template<typename... Arguments>
    static QString message(QStringView format, const Arguments &...arguments)
    {
        return format.isNull() ? QString() : NSString::stringWithFormat(format, arguments...);
    }
    static void failAssertion(const QString &message);
    static void reportVerification(const QString &message);
};
