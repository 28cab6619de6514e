// Temporary objects for handles that no object owns. The dialogs ask for
// them in passing (a control's CWnd, the pen a context had), so a small ring
// is enough: an object is reused once the ring has gone round, and a caller
// that keeps one longer than an immediate use gets what it was warned about.
#pragma once

template <typename Object, int Size = 32>
class TemporaryRing {
public:
    // The destructor of a temporary must not act on the handle it wraps,
    // so each one is emptied before the ring goes away.
    template <typename Empty>
    void Clear(Empty empty)
    {
        for (Object& item : items_)
            empty(item);
    }

    Object& Next()
    {
        Object& item = items_[next_];
        next_ = (next_ + 1) % Size;
        return item;
    }

private:
    Object items_[Size];
    int next_ = 0;
};
