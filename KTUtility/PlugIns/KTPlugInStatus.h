#pragma once

#include <QString>

/// How far a plug-in has come.
enum class KTPlugInState {
    Skipped,    ///< Its Info.plist is missing or damaged, or lacks identifier or principal class.
    Replaced,   ///< Another bundle with its identifier was registered later.
    Registered, ///< It is known and not loaded.
    Failed,     ///< It is known, and the last attempt to load it failed.
    Loaded,     ///< It has an instance.
    PassedOver, ///< It is known, and ended a program; see KTPlugInManager::passesOverCrashed().
};

/// What became of one bundle that a KTPlugInManager has seen.
struct KTPlugInStatus
{
    /// The folder of the bundle.
    QString path;
    /// Its identifier; nil if it has none.
    QString identifier;
    /// What became of it.
    KTPlugInState state = KTPlugInState::Skipped;
    /// What went wrong last, for a person to read; nil if nothing did. A loaded plug-in has one,
    /// too, if its class does not conform to the protocol or failed when it was notified of
    /// something.
    QString lastError;

    friend bool operator==(const KTPlugInStatus &, const KTPlugInStatus &) = default;
};
