#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QMetaObject>

#include <span>

/// What an assertion failed in: an object, or a class itself.
class KTUTILITY_EXPORT NSAssertionSubject
{
public:
    /// An instance: its class as it is at run time, with "-" in the log line.
    NSAssertionSubject(const QObject *object);
    /// A class, for its static functions, with "+" in the log line.
    static NSAssertionSubject classNamed(const QString &name) { return {name, true}; }
    /// An instance of a class that is no QObject.
    static NSAssertionSubject instanceOf(const QString &className) { return {className, false}; }

    /// The name of the class that the assertion failed in.
    const QString &className() const { return _className; }
    /// Whether it failed in a method of the class itself, not of an object.
    bool isClass() const { return _isClass; }

private:
    NSAssertionSubject(const QString &className, bool isClass)
        : _className(className), _isClass(isClass)
    {
    }

    QString _className;
    bool _isClass = false;
};

/// Where failed assertions go. Each thread has a handler of its own; put another one in its place
/// to report failures in your own way.
///
/// The handler here writes "*** Assertion failure in -[Class method], FILE:LINE" to the console and
/// raises NSInternalInconsistencyException with the description as reason.
///
/// \code
/// class Reporter : public NSAssertionHandler { … };
/// Reporter reporter;
/// NSAssertionHandler::setCurrentHandler(&reporter);
/// …
/// NSAssertionHandler::setCurrentHandler(nullptr);    // the standard one again
/// \endcode
class KTUTILITY_EXPORT NSAssertionHandler
{
public:
    NSAssertionHandler() = default;
    virtual ~NSAssertionHandler();
    NSAssertionHandler(const NSAssertionHandler &) = delete;
    NSAssertionHandler &operator=(const NSAssertionHandler &) = delete;

    /// The handler of the calling thread; never null.
    static NSAssertionHandler *currentHandler();
    /// Replaces the handler of the calling thread; null brings back the standard one. The caller
    /// keeps the handler and keeps it alive while it is set.
    static void setCurrentHandler(NSAssertionHandler *handler);

    /// Reports a failure in a method.
    /// \param method the selector, such as "uniqueStringWithBase:forKey:".
    /// \param object the receiver.
    /// \param file the source file, as the compiler knows it.
    /// \param lineNumber the line in it.
    /// \param description an object-format string for \a arguments.
    /// \throws NSException NSInternalInconsistencyException, unless a handler of your own does not.
    virtual void handleFailureInMethod(const QString &method, const NSAssertionSubject &object,
                                       const QString &file, int lineNumber,
                                       const QString &description,
                                       std::span<const NSFormatArgument> arguments = {});
};
