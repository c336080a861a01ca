#pragma once

#include "NSPredicate.h"

namespace KTPrivate {
/// Reads the format of a predicate; see NSPredicate.
class PredicateParser
{
public:
    PredicateParser(QStringView format, const QVariantList &arguments)
        : _format(format), _arguments(arguments)
    {
    }

    /// \throws NSException NSInvalidArgumentException if the format is none.
    NSPredicate::Block parse();

private:
    using Operand = std::function<QVariant(const QVariant &object)>;

    NSPredicate::Block parseOr();
    NSPredicate::Block parseAnd();
    NSPredicate::Block parseNot();
    NSPredicate::Block parseComparison();
    Operand parseOperand();
    Operand parseArgument();
    Operand parseText(QChar quote);
    Operand parseNumber();
    Operand parseWord();
    QString parseOperator();
    QString parseOptions();

    void skipWhitespace();
    bool skip(QStringView symbol);
    bool skipWord(QStringView word);
    QString takeWord();
    QVariant nextArgument();
    [[noreturn]] void fail() const;

    QStringView _format;
    QVariantList _arguments;
    qsizetype _position = 0;
    qsizetype _argument = 0;
    int _depth = 0;
};

namespace PredicateOperators {
/// Compares two values.
/// \param options "c", "d", "cd" or nothing.
bool compare(const QString &comparison, const QString &options, const QVariant &left,
             const QVariant &right);
} // namespace PredicateOperators
} // namespace KTPrivate
