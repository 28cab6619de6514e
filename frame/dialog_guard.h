// The guard of the option context: one dialog of this library at a time.
// The host's own message handlers may call in again from inside the modal
// loop of a running dialog; such a call beeps and gets 0.
//
// The guard is only ever held by these scope objects, so that no way out of
// an entry can leave it taken.
#pragma once

// Takes the guard for the life of the object, or beeps when a dialog of the
// library runs already; Held() tells which. entry names the caller in the
// diagnostics.
class DialogGuard {
public:
    explicit DialogGuard(const char* entry);
    ~DialogGuard();
    DialogGuard(const DialogGuard&) = delete;
    DialogGuard& operator=(const DialogGuard&) = delete;

    bool Held() const { return held_; }

private:
    const char* entry_;
    bool held_;
};

// A file dialog that runs under the guard lets go of it for a dialog it
// opens itself (its option sheet, the metafile class, the target
// application), so that the nested entry may take it; the guard is back as
// it was when the object goes.
class DialogGuardRelease {
public:
    DialogGuardRelease();
    ~DialogGuardRelease();
    DialogGuardRelease(const DialogGuardRelease&) = delete;
    DialogGuardRelease& operator=(const DialogGuardRelease&) = delete;

private:
    bool wasHeld_;
};

// For the entries that only test the guard and leave taking it to the
// runner they call: beeps and gives true while a dialog runs.
bool RefuseWhileDialogRuns(const char* entry);
