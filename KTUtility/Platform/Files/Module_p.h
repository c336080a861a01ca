#pragma once

// Private to the library. The manager of plug-ins asks what would be rejected.

#include <KTUtility/Platform/Classes/NSClass.h>

#include <QString>

#include <memory>

namespace KTPrivate {
/// A shared object that was opened from a bundle.
///
/// The file is opened first, then looked at, and what was looked at is loaded: nobody can exchange
/// it in between. A file that was replaced by renaming another one onto it is other code; the same
/// file is the same code. Closing gives the module back, but its code stays in the process: what
/// Qt keeps of it (types, text literals, pending events) would otherwise point nowhere. With the
/// code stays a descriptor of its file.
class Module
{
public:
    /// Opens the executable of a bundle. It is rejected if it is no file, is incomplete, lies
    /// outside of the bundle, or if somebody else could have written it, what the bundle says
    /// about it, or the folders and links on the way there (see FileTrust).
    /// \param executable nil if the bundle has none.
    /// \param error receives why it cannot be opened.
    /// \return null if it cannot be opened.
    static std::unique_ptr<Module> open(const QString &executable, const QString &bundlePath,
                                        QString *error);
    /// Why open() would reject the file, which is not loaded; nil if it would not.
    static QString rejectionOf(const QString &executable, const QString &bundlePath);
    ~Module();
    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    /// A class that the module registers; null if there is none of the name.
    const NSClass *classNamed(const QString &name) const;

private:
    explicit Module(void *handle);

    void *_handle;
    const void *_module;
};
} // namespace KTPrivate
