#pragma once

#include <QString>
#include <QStringList>

#include <rapidcheck.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

// Properties over random values. The seed is fixed, so that every run checks the same cases; a
// failure says the seed and the smallest case that fails.

namespace testing_support {
/// Checks \a body, which draws its values by itself and fails by RC_ASSERT, in \a cases cases.
inline void checkProperty(const std::string &description, int cases,
                          const std::function<void()> &body)
{
    rc::detail::TestMetadata metadata;
    metadata.id = description;
    metadata.description = description;
    rc::detail::TestParams parameters;
    parameters.seed = 20080220;
    parameters.maxSuccess = cases;
    const rc::detail::TestResult result = rc::detail::checkTestable(body, metadata, parameters);
    if (result.is<rc::detail::SuccessResult>())
        return;
    std::ostringstream message;
    rc::detail::printResultMessage(result, message);
    ADD_FAILURE() << description << "\nseed " << parameters.seed << ": " << message.str();
}

/// Any element of a list that has some.
template<typename T>
const T &someOf(const QList<T> &list)
{
    return list.at(*rc::gen::inRange<qsizetype>(0, list.size()));
}

inline bool someBool()
{
    return *rc::gen::arbitrary<bool>();
}

/// From \a first to \a last.
inline int someNumber(int first, int last)
{
    return *rc::gen::inRange(first, last + 1);
}

/// Fails with both texts if they differ; nil is not the empty text.
inline void requireSame(const QString &found, const QString &expected)
{
    if (found != expected || found.isNull() != expected.isNull())
        RC_FAIL(qPrintable(QStringLiteral("\"%1\" is not \"%2\"").arg(found, expected)));
}
} // namespace testing_support
