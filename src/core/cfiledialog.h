#pragma once
// The file chooser. Its filter is written "Caption (*.ext)|*.ext|..."; tests replace the chooser.

#include <QString>
#include <functional>

class QWidget;

class CFileDialog {
  public:
    QString Title;
    QString Mask;      // "Kelvarin Files (*.kvdb)|*.kvdb"
    QString Extension; // default extension, without the point
    QString InitDir;
    QString FileName; // the proposed name in, the chosen full path out
    QWidget* Owner = nullptr;
    bool ConfirmOverwrite = true; // save mode: the dialog asks before an existing file is chosen

    // Shows the dialog; true when the user chose a file (FileName holds it).
    bool Show(bool saveMode);

    using Handler = std::function<bool(CFileDialog& dialog, bool saveMode)>;
    static Handler SetHandler(Handler h); // returns the previous one; empty restores the real dialog
    // The Qt filter text for Mask.
    QString QtFilter() const;
};

// The folder chooser: "" when cancelled.
QString BrowseForFolder(const QString& title, const QString& start, QWidget* owner = nullptr);
using FolderHandler = std::function<QString(const QString& title, const QString& start)>;
FolderHandler SetFolderHandler(FolderHandler h);
