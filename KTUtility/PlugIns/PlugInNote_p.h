#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSBundle.h>

namespace KTPrivate {
/// Notes on the disk whose code runs, for as long as it runs. The note of a process that has ended
/// stays, and with it the name of the plug-in that ended it.
///
/// Notes lie beside the settings, one file for each process that is in a plug-in, locked while the
/// process lives. A process that somebody else ends (SIGINT, SIGTERM, ...) takes its note along. A
/// note is about the code that ran; another version of the plug-in has none, and who looks for notes
/// removes those about code that is gone. Notes that cannot be written are left out. For the main
/// thread.
///
/// \code
/// if (!PlugInNote::isLeftFor(bundle)) {
///     const PlugInNote note(&bundle);
///     bundle.load();
/// }
/// \endcode
class KTUTILITY_EXPORT PlugInNote
{
public:
    /// \param bundle null notes nothing.
    explicit PlugInNote(const NSBundle *bundle);
    /// Takes the note back; that of a plug-in that has called this one counts again.
    ~PlugInNote();
    PlugInNote(const PlugInNote &) = delete;
    PlugInNote &operator=(const PlugInNote &) = delete;

    /// Whether a process ended while this code of a bundle ran.
    static bool isLeftFor(const NSBundle &bundle);
    /// Forgets that.
    static void removeLeftFor(const NSBundle &bundle);

private:
    bool _isNoted;
};
} // namespace KTPrivate
