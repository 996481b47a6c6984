#pragma once
// A transaction on gWS for the length of a block: it is rolled back unless Commit was reached, so
// that a change of several rows is applied whole or not at all. The error that left the block
// goes on to the caller unchanged.

#include "core/globals.h"

namespace mTV {

class WorkspaceTrans {
  public:
    WorkspaceTrans() : m_level(gWS.TransactionLevel()) { gWS.BeginTrans(); }
    ~WorkspaceTrans() {
        if (gWS.TransactionLevel() <= m_level) return;
        try {
            gWS.Rollback();
        } catch (...) {
            // The error being unwound is the one to report; a failed rollback must not hide it.
        }
    }
    WorkspaceTrans(const WorkspaceTrans&) = delete;
    WorkspaceTrans& operator=(const WorkspaceTrans&) = delete;

    void Commit() { gWS.CommitTrans(); }

  private:
    int m_level;
};

} // namespace mTV
