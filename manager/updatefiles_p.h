// Where the update application finds its images on removable media: two searches over the folders
// that are mounted under one root. Only folders are read; no file is opened.
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

// Kept: the two searches differ in the mounts and in how they take the folder; update applications
// use both. Both return an absolute path or an empty text. Mounts and entries come by name,
// ignoring case. An unreadable folder counts as empty. With "ROOT" the name must match exactly; it
// may lead through folders, but not out of the mount.

/// Looks on the first mount with "/sd" in its path and on no other. The folder is the one called
/// "update", in any case, whatever `folder` says; the file matches in any case. Log lines name the
/// caller.
QString findOnFirstMount(const QString &mediaRoot, const QString &folder, const QString &name,
                         const CallSite &caller);

/// Looks on every mount with the key in its path: `mountKey`, or "/sd" for a null one and when
/// `forceSd` is set. The folder is any whose path contains `folder` exactly; the file matches in
/// any case. With "ROOT" only the first such mount that is not empty counts.
QString findOnAllMounts(const QString &mediaRoot, const QString &folder, const QString &name,
                        const QString &mountKey, bool forceSd);

} // namespace mcu::updatefiles
