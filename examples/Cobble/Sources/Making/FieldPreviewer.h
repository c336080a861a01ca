#pragma once

#include "FieldScan.h"

#include <KTUtility/KTDatabaseBundle>

#include <QObject>
#include <QThreadPool>

#include <atomic>

/// Previews what plans for the fields of a library would do to the values that there are, in a thread
/// of its own, on a connection of its own. Who asks for another plan meanwhile gets that alone.
///
/// \code
/// FieldPreviewer previewer(bundle);
/// QObject::connect(&previewer, &FieldPreviewer::changed, this, [&] { show(previewer.preview()); });
/// previewer.look(plan);
/// \endcode
class FieldPreviewer : public QObject
{
    Q_OBJECT

public:
    explicit FieldPreviewer(const KTDatabaseBundle &bundle);
    /// Waits until the thread has noticed that nobody wants its result.
    ~FieldPreviewer() override;

    /// Looks at the values, unless they would become what the last plan has made of them. With nothing
    /// to look at, there is a preview at once.
    void look(const FieldPlan &plan);
    /// The same, also if nothing else is planned: the values may be others.
    void lookAgain(const FieldPlan &plan);

    /// Nothing while it is looked for, or if it could not be found.
    const std::optional<FieldPreview> &preview() const { return _preview; }
    /// Why it could not be found; nil if it is, or is still looked for.
    const QString &reason() const { return _reason; }

Q_SIGNALS:
    /// There is a preview, or a reason why there is none.
    void changed();

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;
    using Result = Outcome<FieldPreview>;
    void cancel();
    void start(const FieldPlan &plan);
    void work(const FieldScan &scan, const Flag &flag);
    void take(const Result &result);

    KTDatabaseBundle _bundle;
    std::optional<QList<FieldScan::Part>> _parts;
    std::optional<FieldPreview> _preview;
    QString _reason;
    /// Whether the result of the last one is wanted.
    Flag _isWanted;
    QThreadPool _pool;
};
