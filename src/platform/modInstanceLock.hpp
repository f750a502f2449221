#pragma once
// One running program for each user and program folder: a lock that the kernel holds for the process and lets
// go at its end, however that comes.

#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

class InstanceLock {
  public:
    // Takes the lock of `programFolder`, in the user's run-time folder and in a folder of the user's own
    // among the temporary files.
    explicit InstanceLock(std::string_view programFolder);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // False where another holder has the lock. True also where no lock can be made at all: that must not keep
    // anybody from working.
    bool Held() const { return !takenByAnother_; }

  private:
    std::vector<int> files_;
    bool takenByAnother_ = false;
};

}  // namespace tarvek
