#pragma once
// The program's pictures, SVG drawings so they are sharp at every size and scale: the icon of each
// command by its id (the desktop's icon theme first for the standard actions), the images of tree
// nodes and list rows by key, the application icon and the picture shown for a contact without a
// photo.

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QStringList>

class ImageList;

namespace mIcons {

// The icon of command `id`; a null icon for commands that show their caption alone (the letter
// index, the sort entries).
QIcon CommandIcon(int id);

// Keys of the node and row images: "CAT", "CATS", "CATSEL", "CATSSEL" (categories and their root,
// plain and selected), "BOX"... (groups), "STAR", "STARS" (favorites), "BOR" (contact rows),
// "Tray16", "Tray256" (the application).
QStringList ImageKeys();
QIcon Image(const QString& key);
// Puts every image above into `list`.
void RegisterImages(ImageList& list);

QIcon AppIcon();

// A neutral figure on a light ground, for contacts without a photo.
QPixmap NoPhotoPicture(const QSize& size);

} // namespace mIcons
