#pragma once

/// What the next layout has to do at one view and below it. A value; kept by each view, which marks every ancestor of a
/// marked view as well, so that a layout finds its way down.
class LayoutMarks {
public:
    enum Mark : unsigned {
        constraints = 1u << 0, // the system that the view is the root of must be solved again
        subviews = 1u << 1,    // its layoutSubviews must run
        descendants = 1u << 2, // a view further down is marked
    };

    /// False when it was marked already.
    bool set(Mark mark) {
        const bool isNew = (m_marks & mark) == 0;
        m_marks |= mark;
        return isNew;
    }
    /// Clears the mark; false when there was none.
    bool take(Mark mark) {
        const bool wasSet = (m_marks & mark) != 0;
        m_marks &= ~static_cast<unsigned>(mark);
        return wasSet;
    }
    [[nodiscard]] bool areAny() const { return m_marks != 0; }

private:
    unsigned m_marks = constraints | subviews; // of a new view
};
