#include "books/making/folder_in_making.h"

#include "base/system/owned_files.h"
#include "data/engines/open_engine.h"

namespace chengheng {

namespace files = std::filesystem;

FolderInMaking::FolderInMaking(const std::string& location) {
    if (location == ":memory:" || isServerAddress(location)) return;
    std::error_code unseen;
    for (files::path folder = files::path(location).parent_path();
         !folder.empty() && !files::exists(folder, unseen); folder = folder.parent_path())
        m_made.push_back(folder);
    m_status = makeOwnedFolder(files::path(location).parent_path());
}

FolderInMaking::~FolderInMaking() {
    std::error_code unseen;
    for (const files::path& folder : m_made) files::remove(folder, unseen);
}

}  // namespace chengheng
