#pragma once

#include "ImportPreview.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

/// Makes previews in a thread of its own, the last one that was asked for.
///
/// \code
/// QObject::connect(&previewer, &ImportPreviewer::shown, this, &ImportSheet::show);
/// previewer.show(request);    // and again, whenever something is chosen
/// \endcode
class ImportPreviewer : public QObject
{
    Q_OBJECT

public:
    explicit ImportPreviewer(QObject *parent = nullptr) : QObject(parent) {}
    ~ImportPreviewer() override;

    /// Begins a preview; what was begun before is given up.
    void show(const ImportRequest &request);
    /// Gives up what was begun.
    void stop();
    bool isBusy() const { return _thread.joinable(); }

Q_SIGNALS:
    void shown(const ImportPreview &preview);
    /// There is nothing to show.
    void failed(const QString &reason);

private:
    void start(const ImportRequest &request);
    void startWithCards(const ImportRequest &request);
    void
    startWith(const std::function<Outcome<ImportPreview>(const std::function<bool()> &)> &make);
    void finish(const Outcome<ImportPreview> &preview);

    std::thread _thread;
    std::atomic<bool> _goesOn = false;
    std::optional<ImportRequest> _next;
};
