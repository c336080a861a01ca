#pragma once

#include "PlainWays.h"

#include <QHash>
#include <QString>

#include <array>

class FieldReader;

/// What the reader of a column makes of texts like those that it has read before.
///
/// Reading a text in all of its forms takes long, and the texts of a column are alike. So the reader is
/// asked about the first texts of each form (see PlainText), and what it says leaves one of the ways in
/// which the digits can be taken (see PlainWays). From then on the digits are taken in this way,
/// without it. It is asked again about every text that is nothing in that way, such as 13/2/2016 where
/// the month stands first; and wherever two ways that are left are not of one opinion.
///
/// \code
/// PlainColumn column(reader);
/// QVariant value = column.valueOf(u"3/5/2008"_s);    // invalid: what is it?
/// column.learn(StoredValue::forDatabase(*reader.read(u"3/5/2008"_s, true)));
/// value = column.valueOf(u"4/6/2009"_s);             // "2009-04-06T12:00:00-04:00"
/// \endcode
class PlainColumn
{
public:
    /// \param reader must outlive it.
    explicit PlainColumn(const FieldReader &reader);

    /// The value as the database keeps it; invalid if the reader has to be asked.
    /// \param text must stay until learn() is called, if it is.
    QVariant valueOf(const QString &text);
    /// What the reader says of that text; to be called whenever it was asked.
    /// \param stored the value as the database keeps it; invalid if it was refused.
    void learn(const QVariant &stored);

private:
    /// Texts that are alike.
    struct Form
    {
        /// A bit for each way that is left.
        quint32 ways = 0;
        /// Whether the reader takes texts in one of these ways.
        bool isTaken = false;
        /// Whether the reader took the last one by a pattern, which it tries first from then on.
        bool isByPattern = false;
        QString pattern;
    };

    Form *formOf(const PlainText &text);
    bool isSettled(const Form &form) const;
    QVariant agreedValue(const Form &form);
    void dropWays(Form *form, const QVariant &stored);

    const FieldReader &_reader;
    bool _takesAll;
    std::unique_ptr<PlainWays> _ways;
    /// By their kinds.
    std::array<QHash<QString, Form>, PlainWays::KindCount> _forms;
    /// The pattern by which the reader took the last text that it took by one.
    QString _recentPattern;
    PlainText _text;
    Form *_form = nullptr;
};
