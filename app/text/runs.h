/// The rule by which every list of numbers is compressed.
#pragma once

/// Calls `put(separator, number)` for what a list shows of a run of neighbours: three and more are a range, two are
/// listed. `separator` comes before the first.
template <class Number, class Put> inline void listRun(char separator, Number first, Number last, Put put) {
    put(separator, first);
    if (last != first) put(last == first + 1 ? ',' : '-', last);
}
