#pragma once

#include <KTUtility/KTUtilityExport.h>

/// What can hold something that a user has typed and that is not stored yet: an edit that belongs to
/// a NSArrayController, which asks it to store that or to give it up.
///
/// \code
/// class NameEdit : public QLineEdit, public NSEditor
/// {
///     bool commitEditing() override { return store(text()); }
///     void discardEditing() override { setText(stored()); }
/// };
/// controller->objectDidBeginEditing(nameEdit);    // somebody types
/// controller->objectDidEndEditing(nameEdit);      // it is stored, or given up
/// \endcode
class KTUTILITY_EXPORT NSEditor
{
public:
    virtual ~NSEditor();

    /// Stores what is typed.
    /// \return false if it cannot be stored: it stays as it is, and the editor says why.
    virtual bool commitEditing() = 0;
    /// Gives it up, and shows what is stored.
    virtual void discardEditing() = 0;
};
