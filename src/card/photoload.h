#pragma once
// The photo of a contact read from its row, for the card and for the main window's photo pane.

#include <QPixmap>

namespace dao {
class Recordset;
}

namespace mCard {

enum class StoredPhoto {
    NotRead, // no temporary file is set: nothing was done
    None,    // the contact has no photo: the fallback picture is shown
    Stored,  // the contact has a photo: it is shown, or what was shown stays when its field is empty
};

// Writes the Photo field of the row the recordset stands on to the temporary photo file, decodes
// it into picImage and deletes the file again, whatever happens. A Null photo puts imNoImage into
// picImage; a photo that cannot be decoded does too, so that a damaged row still opens.
StoredPhoto LoadStoredPhoto(const dao::Recordset& rstWork, QPixmap& picImage, const QPixmap& imNoImage);

} // namespace mCard
