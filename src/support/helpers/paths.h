#pragma once
// Splitting and trimming of paths and file names. Paths use "/".

#include <QString>

namespace mDrive {

// The path less one trailing separator: "/media/usb/" is "/media/usb", "C:\" is "C:", and the
// root "/" becomes "", so that folder + "/" + name is always right.
QString GetPathWithNoSlash(const QString& sBrowse);

} // namespace mDrive

namespace mCommon {

// Element `point` of the text split at ".", or "" when there is no such element. Elements count
// from 0; a negative `point` counts from the end, so -1 is the part after the last point (a
// file's extension, as typed).
QString Spliting2(const QString& sFullPath, int point);
// The same for the folders of a path, split at "/": element 0 of "/home/ann" is "", 1 "home".
QString SplitingFolder(const QString& sFullPath, int point);
// Everything before the last "/": the folder that holds the file or folder. A path directly
// below the root gives "/"; a bare name with no folder gives "".
QString SplitingParentFolder(const QString& sFullPath);

} // namespace mCommon
