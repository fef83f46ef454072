// Other dice and another player for a while.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Puts a session's seams back as they were when this was made.
class SeamsGuard {
  public:
    explicit SeamsGuard(Seams& seams) : seams_(seams), before_(seams) {}
    ~SeamsGuard() { seams_ = before_; }
    SeamsGuard(const SeamsGuard&) = delete;
    SeamsGuard& operator=(const SeamsGuard&) = delete;

  private:
    Seams& seams_;
    Seams before_;
};

}  // namespace korvane
