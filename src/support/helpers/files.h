#pragma once
// Existence and size of files and folders. A path that does not exist gives false or 0.

#include <QString>

namespace mScanCD {

bool FolderExist(const QString& folderPath); // an existing folder (the root "/" included)
bool FileExist(const QString& FilePath);     // an existing file or folder
double GetFileSize(const QString& FullPath); // bytes of a file; 0 for a folder or nothing
// A size given as two 32-bit halves, each read as unsigned.
double FileSizeWFD(qint32 plngFileSizeHigh, qint32 plngFileSizeLow);
// The size of the phonebook file at sDBPath for display: "1,536 bytes (1.5 KB)" when Full,
// else "1,536 bytes".
QString GetFileDBSize(bool Full, const QString& sDBPath);

} // namespace mScanCD
