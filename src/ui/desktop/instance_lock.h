// Sees to it that one person runs one instance at a time.
#pragma once

#include <QLockFile>

namespace corvane::ui {

class InstanceLock {
  public:
    // Takes the lock file in the user's runtime folder. One whose process is gone does not count.
    InstanceLock();

    bool IsHeldByAnother() const { return isHeldByAnother_; }

  private:
    QLockFile file_;
    bool isHeldByAnother_;
};

}  // namespace corvane::ui
