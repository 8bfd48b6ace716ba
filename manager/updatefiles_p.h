// Finds the images of the update application on removable media: two searches in the folders that
// are mounted under one root. Only folders are read; no file is opened.
#pragma once

#include "debug.h"

#include <QString>

namespace mcu::updatefiles {

/// A known update image: its folder on the medium, "/update" or "ROOT" for the top level, and its
/// file name.
struct Image {
    const char *folder;
    const char *name;
};

/// The image of an McuManager::UpdateFile value; null texts for an unknown one.
Image imageOf(int updateFile);

// Kept: the two searches differ in the mounts and in the meaning of the folder; update applications
// use both. Both return an absolute path or an empty text. Mounts and entries are searched in the
// order of their names, ignoring case. An unreadable folder counts as empty. With "ROOT" the name
// must match exactly; it may lead through folders, but not out of the mount.

/// Searches only the first mount with "/sd" in its path. The folder is always "update", whatever
/// `folder` says; folder and file match in any case. An empty `folder` also takes files at the top
/// level. Log lines have the call site of the caller.
QString findOnFirstMount(const QString &mediaRoot, const QString &folder, const QString &name,
                         const CallSite &caller);

/// Searches every mount with the key in its path. The key is `mountKey`, or "/sd" if `mountKey` is
/// null or `forceSd` is set. A folder matches if its path contains `folder` exactly; the file
/// matches in any case. An empty `folder` also takes files at the top level. With "ROOT", searches
/// only the first of these mounts that is not empty.
QString findOnAllMounts(const QString &mediaRoot, const QString &folder, const QString &name,
                        const QString &mountKey, bool forceSd);

} // namespace mcu::updatefiles
