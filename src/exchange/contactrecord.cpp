#include "exchange/contactrecord.h"

namespace exchange {

bool ContactRecord::operator==(const ContactRecord& o) const {
    return FullName == o.FullName && Title == o.Title && Company == o.Company && Address == o.Address &&
           City == o.City && State == o.State && Zip == o.Zip && Comment == o.Comment && Photo == o.Photo &&
           PhotoExt == o.PhotoExt && Numbers == o.Numbers && CategoryPath == o.CategoryPath &&
           GroupPath == o.GroupPath && Favorite == o.Favorite && FavoritePath == o.FavoritePath;
}

} // namespace exchange
