#pragma once

#include "Journal/ChangeJournal.h"
#include "Library/LibraryStore.h"
#include "Library/SQL.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/NSObject>

namespace testing_support {
using namespace Qt::StringLiterals;

inline LibraryField fieldOf(const QString &header, FieldType type = FieldType::Text)
{
    LibraryField field;
    field.header = header;
    field.type = type;
    return field;
}

/// A bundle with a store, in which a library "People" of three fields, Name, Age and Photo, has the
/// records Ann, Bob and Cid. They are made by steps of the journal.
class StoreTest : public testing::Test
{
protected:
    StoreTest() : bundle(tree.path(u"b.cobbledb"_s))
    {
        needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        make([this](StepRecorder &step) { return addPeople(step); });
    }

    Outcome<> addPeople(StepRecorder &step)
    {
        Library library;
        library.name = u"People"_s;
        library.fields = {fieldOf(u"Name"_s), fieldOf(u"Age"_s, FieldType::Number),
                          fieldOf(u"Photo"_s, FieldType::Media)};
        const Outcome<Library> made = step.createLibrary(library);
        if (!made)
            return made.failure();
        people = *made;
        for (const QVariantList &values :
             {QVariantList{u"Ann"_s, 31, u"cobblemedia://ann.0.png"_s},
              QVariantList{u"Bob"_s, QVariant(), QVariant()}, QVariantList{u"Cid"_s, 4.5, u""_s}}) {
            if (const auto added = step.insert(people, values); !added)
                return added.failure();
        }
        return {};
    }

    /// Makes a step.
    /// \return its number; −1 if that failed, for #reason.
    qint64 make(const std::function<Outcome<>(StepRecorder &)> &changes,
                const QString &kind = StepKinds::Edit)
    {
        ChangeJournal journal(*store, limits);
        const Outcome<qint64> made = journal.make({kind, {}}, changes);
        forgottenMedia = journal.forgottenMedia();
        reason = made.reason();
        return made.valueOr(-1);
    }

    /// A step that changes what is shown as \ref people.
    qint64 change(const std::function<Outcome<Library>(StepRecorder &)> &changes)
    {
        return make([&](StepRecorder &step) {
            const Outcome<Library> changed = changes(step);
            if (changed)
                people = *changed;
            return changed ? Outcome<>() : changed.failure();
        });
    }

    qint64 setName(qint64 id, const QString &name)
    {
        return make([&](StepRecorder &step) { return step.update(people, id, 0, name); });
    }

    QString undo(qint64 step) { return ChangeJournal(*store).undo(step).reason(); }
    QString redo(qint64 step) { return ChangeJournal(*store).redo(step).reason(); }

    QString undoEach(const QList<qint64> &steps)
    {
        QString reasons;
        for (const qint64 step : steps)
            reasons += undo(step);
        return reasons;
    }
    QString redoEach(const QList<qint64> &steps)
    {
        QString reasons;
        for (const qint64 step : steps)
            reasons += redo(step);
        return reasons;
    }

    /// All libraries with their fields and records: "People(Name, Age): 1 Ann 31; 2 Bob nil".
    QString content() const
    {
        QStringList texts;
        const QList<Library> libraries = store->libraries().valueOr({});
        for (const Library &library : libraries)
            texts += contentOf(library);
        return texts.join(u" | "_s);
    }

    QString contentOf(const Library &library) const
    {
        QStringList titles;
        for (const LibraryField &field : library.fields)
            titles += field.title();
        QStringList records;
        RecordCursor cursor = store->records(library);
        while (cursor.next()) {
            QStringList values = {QString::number(cursor.id())};
            for (qsizetype field = 0; field < library.fields.size(); ++field)
                values += textOf(cursor.value(field));
            records += values.join(u' ');
        }
        EXPECT_EQ(cursor.outcome().reason(), QString());
        return library.name + u'(' + titles.join(u", "_s) + u"): " + records.join(u"; "_s);
    }

    static QString textOf(const QVariant &value)
    {
        if (NSObject::isNil(value))
            return u"nil"_s;
        const QString text = NSObject::description(value);
        return text.isEmpty() ? u"''"_s : text;
    }

    void runSQL(const QString &statement)
    {
        EXPECT_EQ(SQL::run(store->database(), statement).reason(), QString());
    }

    qint64 countOf(const QString &from) const
    {
        return SQL::number(store->database(), u"SELECT count(*) FROM " + from).valueOr(-1);
    }

    FileTree tree;
    KTDatabaseBundle bundle;
    std::unique_ptr<LibraryStore> store;
    Library people;
    QString reason;
    QSet<QString> forgottenMedia;
    ChangeJournal::Limits limits;
    const QString everything =
        u"People(Name, Age, Photo): 1 Ann 31 cobblemedia://ann.0.png; 2 Bob nil nil; 3 Cid 4.5 ''"_s;
};
} // namespace testing_support
