#pragma once
// A bulk change of a list: between the start and the end of the block the list's view is not
// told row by row; it hears of the change once, at the end (or at end()).

#include "support/controls/listview.h"

namespace mLV {

class ListUpdate {
  public:
    explicit ListUpdate(ListView& list) : m_list(list) { m_list.BeginUpdate(); }
    ~ListUpdate() { end(); }
    void end() {
        if (m_open) m_list.EndUpdate();
        m_open = false;
    }
    ListUpdate(const ListUpdate&) = delete;
    ListUpdate& operator=(const ListUpdate&) = delete;

  private:
    ListView& m_list;
    bool m_open = true;
};

} // namespace mLV
