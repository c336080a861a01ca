#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QList>

#include <functional>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace KTPrivate {
/// A folder in a tree of folders that is walked with one descriptor, however deep the tree is.
///
/// What is in the folder is named by descriptor() and its name. The way down follows no links, and
/// the way up ends where a folder was moved elsewhere meanwhile, so that a walk never leaves its
/// tree.
///
/// \code
/// FolderPlace place(openFile("/tmp/tree", O_RDONLY | O_DIRECTORY));
/// if (place.enter("inner"))
///     ::unlinkat(place.descriptor(), "file", 0);    // /tmp/tree/inner/file
/// \endcode
class KTUTILITY_EXPORT FolderPlace
{
public:
    /// \param descriptor of the folder at the root of the tree, opened for reading; it is closed
    /// with the place. Below 0 it stands for a folder that could not be opened: nothing is in it.
    explicit FolderPlace(int descriptor);
    ~FolderPlace();
    FolderPlace(const FolderPlace &) = delete;
    FolderPlace &operator=(const FolderPlace &) = delete;

    int descriptor() const { return _descriptor; }
    bool isRoot() const { return _above.empty(); }

    /// The names of all that is in the folder; nothing if it cannot be read.
    std::optional<QList<QByteArray>> names() const;
    /// Goes into a folder.
    /// \return false, with a reason in errno, if it is none, a link to one, or cannot be read.
    bool enter(const QByteArray &name);
    /// Goes back to the folder above.
    /// \param finish is called with the folder that is left; may be empty.
    /// \return false if the folder above cannot be reached, or for what \a finish gives.
    bool leave(const std::function<bool(int descriptor)> &finish = {});

private:
    struct Above
    {
        dev_t device;
        ino_t number;
        /// Its descriptor, if there is no way back to it; else below 0.
        int kept;
    };
    static std::optional<Above> identityOf(int descriptor);
    int openAbove() const;

    int _descriptor;
    std::vector<Above> _above;
};
} // namespace KTPrivate
