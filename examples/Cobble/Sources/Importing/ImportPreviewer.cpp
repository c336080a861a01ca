#include "ImportPreviewer.h"

#include "Text/Safely.h"

#include <system_error>

namespace {
using Make = std::function<Outcome<ImportPreview>(const std::function<bool()> &goesOn)>;
} // namespace

ImportPreviewer::~ImportPreviewer()
{
    _goesOn = false;
    if (_thread.joinable())
        _thread.join();
}

void ImportPreviewer::show(const ImportRequest &request)
{
    if (!isBusy()) {
        start(request);
        return;
    }
    _goesOn = false;
    _next = request;
}

void ImportPreviewer::stop()
{
    _goesOn = false;
    _next.reset();
}

/// Plug-ins are called in this thread only.
void ImportPreviewer::start(const ImportRequest &request)
{
    if (ImportFile::isSeparatedText(request.path)) {
        startWith([request](const std::function<bool()> &goesOn) {
            return ImportPreview::of(request, goesOn);
        });
        return;
    }
    startWithCards(request);
}

/// What a plug-in imports is read here, where plug-ins are.
void ImportPreviewer::startWithCards(const ImportRequest &request)
{
    const Outcome<ImportFile> file = ImportFile::read(request);
    if (file)
        startWith([file = *file, request](const std::function<bool()> &goesOn) {
            return ImportPreview::of(file, request, goesOn);
        });
    else
        Q_EMIT failed(file.reason());
}

void ImportPreviewer::startWith(const Make &make)
{
    _goesOn = true;
    try {
        _thread = std::thread([this, make] {
            const auto preview = safely([&] { return make([this] { return _goesOn.load(); }); });
            QMetaObject::invokeMethod(
                this, [this, preview] { finish(preview); }, Qt::QueuedConnection);
        });
    } catch (const std::system_error &failure) {
        _goesOn = false;
        Q_EMIT failed(QString::fromLocal8Bit(failure.what()));
    }
}

void ImportPreviewer::finish(const Outcome<ImportPreview> &preview)
{
    _thread.join();
    const bool isWanted = _goesOn.exchange(false);
    if (const auto next = std::exchange(_next, std::nullopt))
        start(*next);
    else if (isWanted && preview)
        Q_EMIT shown(*preview);
    else if (isWanted)
        Q_EMIT failed(preview.reason());
}
