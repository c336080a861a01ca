#include "FileRemoval_p.h"

#include <filesystem>

bool KTPrivate::removeItem(const QByteArray &path)
{
    const std::filesystem::path name = path.toStdString();
    std::error_code error;
    bool wasThere = false;
    do {
        const auto count = std::filesystem::remove_all(name, error);
        wasThere = wasThere || error || count > 0;
    } while (error == std::errc::interrupted);
    return !error && wasThere;
}
