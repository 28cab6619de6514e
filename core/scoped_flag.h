// A busy flag of the library held at 1 for a scope: the handlers that the
// flag keeps from feeding each other see it set while the scope's own writes
// raise their notifications, and it is back as it was on every way out.
#pragma once

class ScopedFlag {
public:
    explicit ScopedFlag(int& flag) : flag_(flag), before_(flag) { flag_ = 1; }
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
    int& flag_;
    int before_;
};
