#pragma once

#include "Journal/StepRecorder.h"
#include "Journal/StepTitle.h"

/// What the fields of a library are to become: their titles, types and settings, their order, new ones
/// and those that go. The library stays as it is until all of it is made as one step of the journal.
///
/// \code
/// FieldPlan plan(people);
/// plan.rename(0, u"Full Name"_s);
/// plan.move(2, 1);
/// journal.make(plan.title(), [&](StepRecorder &step) { return plan.make(step); });
/// \endcode
class FieldPlan
{
public:
    struct Field
    {
        /// As it will be.
        LibraryField field;
        /// Its place in the library; −1 for a new one.
        qsizetype origin = -1;
        /// Whether its values are read anew.
        bool isRetyped = false;
        /// Whether somebody has moved it.
        bool isMoved = false;
    };

    explicit FieldPlan(const Library &library);

    /// As it is.
    const Library &library() const { return _library; }
    /// Those that there will be, in their order.
    const QList<Field> &fields() const { return _fields; }
    /// The field as it is; only for one that is not new.
    const LibraryField &before(const Field &field) const
    {
        return _library.fields.at(field.origin);
    }
    /// The places in the library of those that go.
    QList<qsizetype> removed() const;

    /// A field that a library can get. Amounts are in the currency of the user's locale, and stay in
    /// it.
    static LibraryField newField(const QString &title, FieldType type);

    /// \param place where it comes to stand; at the end if negative.
    void add(const LibraryField &field, qsizetype place = -1);
    void remove(qsizetype place) { _fields.removeAt(place); }
    void rename(qsizetype place, const QString &title);
    void move(qsizetype from, qsizetype to);
    /// Gives a field a type, in which its values are read anew, also if it has that type.
    void setType(qsizetype place, FieldType type, const QVariantMap &options);
    /// Gives a field the type and the settings back that it has in the library.
    void keepType(qsizetype place);
    /// Settings that change what the field shows.
    void setOptions(qsizetype place, const QVariantMap &options);
    /// How many values of a field may become empty since they cannot be read; none unless set.
    /// \param origin its place in the library.
    void setEmptied(qsizetype origin, qint64 count) { _emptied.insert(origin, count); }

    bool isRenamed(const Field &field) const;
    bool isShownAnew(const Field &field) const;
    /// Whether those that stay have another order among themselves.
    bool isReordered() const;
    /// Whether it changes nothing.
    bool isEmpty() const { return changes().isEmpty(); }
    /// Whether a title that a field gets can be its own. Those that the library has can stay, whatever
    /// they are.
    Outcome<> checkTitle(qsizetype place) const;
    /// The same for all titles.
    Outcome<> check() const;

    /// What the journal calls it.
    StepTitle title() const;
    /// Does it; for that, the library has to be as it was. Fails, too, if more values cannot be read
    /// than may become empty.
    Outcome<> make(StepRecorder &step) const;

private:
    /// A kind of step, and the title of the field.
    using Change = std::pair<QString, QString>;
    QList<Change> changes() const;
    QList<Change> changesOf(const Field &field) const;
    StepRecorder::Conversion conversionFor(const Field &field) const;
    Outcome<Library> makeFields(StepRecorder &step) const;
    Outcome<Library> makeField(StepRecorder &step, const Library &library,
                               const Field &field) const;
    Outcome<Library> removeFields(StepRecorder &step, const Library &library) const;
    QList<qsizetype> orderAfterRemoval() const;

    Library _library;
    QList<Field> _fields;
    QHash<qsizetype, qint64> _emptied;
};
