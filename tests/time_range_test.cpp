/// Time ranges.
#include "system_area.h"

using namespace system_area;

// ---------------------------------------------------------------------------------------------------- time ranges

ROWS(TimeRanges,
     ({
         {"none", Mode::full, timeRanges, [](auto &, auto &defaults) { defaults.timeRanges[0] = someRange(); }, ""},
         {"name alone", Mode::full, timeRanges, onlyRange([](TimeRange &) {}), "time-range range\nexit \n"},
         {"all", Mode::full, timeRanges, [](auto &current, auto &) { current.timeRanges[0] = someRange(); },
          "time-range range\nabsolute start 08:00 02 jun 2025 \nabsolute end 18:30 30 sep 2026 \n"
          "periodic 08:00 mon to 17:00 fri \nperiodic 10:00 sun to 11:00 sat \n"
          "periodic list 12:00 to 13:00 mon wed \nperiodic list 20:00 to 21:00 sun sat \nexit \n"},
         {"without name", Mode::full, timeRanges,
          [](auto &current, auto &) {
              current.timeRanges[0] = someRange();
              current.timeRanges[0].name = "";
          },
          ""},
         {"first and last slot", Mode::full, timeRanges,
          [](auto &current, auto &) {
              current.timeRanges[9].name = "last";
              current.timeRanges[0].name = "first";
          },
          "time-range first\nexit \ntime-range last\nexit \n"},
         {"full name", Mode::full, timeRanges, [](auto &current, auto &) { current.timeRanges[9].name = letters(40).c_str(); },
          "time-range " + letters(40) + "\nexit \n"},
         {"places", Mode::full, timeRanges,
          [](auto &current, auto &) {
              char *const range = reinterpret_cast<char *>(bytesAt(current, 202992 + 9 * 204));
              std::strcpy(range, "a,1,1,1");
              std::strcpy(range + 32, "b,2,2,2");
              std::strcpy(range + 64, "1,c");
              std::strcpy(range + 80, "2,d");
              std::strcpy(range + 96, "3,e");
              std::strcpy(range + 112, "4,f");
              range[128] = 2;
              std::strcpy(range + 130, "g");
              std::strcpy(range + 138, "h");
              range[146] = 4;
              std::strcpy(range + 148, "i");
              std::strcpy(range + 156, "j");
              std::strcpy(range + 164, "n");
          },
          "time-range n\nabsolute start a 01 jan 1 \nabsolute end b 02 feb 2 \nperiodic c mon to d tue \n"
          "periodic e wed to f thu \nperiodic list g to h mon \nperiodic list i to j tue \nexit \n"},
         {"absolute end alone", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.absoluteEnd = "1:2,3,4,5"; }),
          inFull("absolute end 1:2 03 apr 5 \n")},
         start("month 0", "08:00,1,0,2025", "08:00 01  2025"),
         start("month 1", "08:00,1,1,2025", "08:00 01 jan 2025"),
         start("month 2", "08:00,1,2,2025", "08:00 01 feb 2025"),
         start("month 3", "08:00,1,3,2025", "08:00 01 mar 2025"),
         start("month 4", "08:00,1,4,2025", "08:00 01 apr 2025"),
         start("month 5", "08:00,1,5,2025", "08:00 01 may 2025"),
         start("month 6", "08:00,1,6,2025", "08:00 01 jun 2025"),
         start("month 7", "08:00,1,7,2025", "08:00 01 jul 2025"),
         start("month 8", "08:00,1,8,2025", "08:00 01 aug 2025"),
         start("month 9", "08:00,1,9,2025", "08:00 01 sep 2025"),
         start("month 10", "08:00,1,10,2025", "08:00 01 oct 2025"),
         start("month 11", "08:00,1,11,2025", "08:00 01 nov 2025"),
         start("month 12", "08:00,1,12,2025", "08:00 01 dec 2025"),
         start("month 13", "08:00,1,13,2025", "08:00 01  2025"),
         start("month minus 1", "08:00,1,-1,2025", "08:00 01  2025"),
         start("month beyond 32 bits", "08:00,1,4294967297,2025", "08:00 01  2025"),
         start("month far below", "08:00,1,-99999999999,2025", "08:00 01  2025"),
         start("day of two digits", "08:00,31,1,2025", "08:00 31 jan 2025"),
         start("day of three digits", "08:00,123,1,2025", "08:00 123 jan 2025"),
         start("day 0", "08:00,0,1,2025", "08:00 00 jan 2025"),
         start("negative day", "08:00,-1,1,2025", "08:00 -1 jan 2025"),
         start("year beyond 32 bits", "08:00,1,1,2147483648", "08:00 01 jan 2147483647"),
         start("year of 32 bits", "08:00,1,1,2147483647", "08:00 01 jan 2147483647"),
         start("year below 32 bits", "08:00,1,1,-2147483649", "08:00 01 jan -2147483648"),
         start("year beyond 64 bits", "0,1,1,99999999999999999999999999", "0 01 jan 2147483647"),
         start("year below 64 bits", "0,1,1,-9999999999999999999999999", "0 01 jan -2147483648"),
         start("the year keeps the rest", "08:00,1,1,2025,7", "08:00 01 jan 2025"),
         start("numbers with blanks, signs and letters", "x, +2x,\t1\n,--9", "x 02 jan 0"),
         start("empty fields", ",,,", " 00  0"),
         start("one field", "abc", "abc 00  0"),
         start("two fields", "abc,12", "abc 12  0"),
         start("three fields", "abc,12,12", "abc 12 dec 0"),
         start("full text", "abcdefghijklmnopqrstuvwx,01,2,20", "abcdefghijklmnopqrstuvwx 01 feb 20"),
         start("full text without comma", "abcdefghijklmnopqrstuvwxyz012345", "abcdefghijklmnopqrstuvwxyz012345 00  0"),
         {"full text beside the next", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.absoluteStart = "abcdefghijklmnopqrstuvwx,01,2,20";
              it.absoluteEnd = "99,1,1,1";
          }),
          inFull("absolute start abcdefghijklmnopqrstuvwx 01 feb 20 \nabsolute end 99 01 jan 1 \n")},

         periodic("weekday 0", "0,a", "1,b", "a sun to b mon"),
         periodic("weekday 2", "2,a", "3,b", "a tue to b wed"),
         periodic("weekday 4", "4,a", "5,b", "a thu to b fri"),
         periodic("weekday 6", "6,a", "7,b", "a sat to b "),
         periodic("weekday minus 1", "-1,a", "-99999999999,b", "a  to b "),
         periodic("weekday beyond 32 bits", "4294967296,a", "8,b", "a  to b "),
         periodic("start alone", "1,08:00", "", "08:00 mon to  sun"),
         periodic("end alone", "", "5,17:00", " sun to 17:00 fri"),
         periodic("the time keeps the rest", "1,a,b", "2,c,", "a,b mon to c, tue"),
         periodic("without comma", "3", "x", " wed to  sun"),
         periodic("full texts", "1,abcdefghijklmn", "2,opqrstuvwxyz01", "abcdefghijklmn mon to opqrstuvwxyz01 tue"),
         {"second periodic range alone", Mode::full, timeRanges,
          onlyRange([](TimeRange &it) { it.periodic[1].start = "6,a"; }), inFull("periodic a sat to  sun \n")},

         {"list without weekdays", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.list[0].start = "1"; }),
          inFull("periodic list 1 to  \n")},
         {"list with an end alone", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.list[1].end = "2"; }),
          inFull("periodic list  to 2 \n")},
         {"list of weekdays alone", Mode::full, timeRanges,
          onlyRange([](TimeRange &it) { it.list[0].weekdays.set(1); }), inFull("")},
         {"list of every weekday", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.list[0].weekdays = {{0xff, 0xff}};
              it.list[0].start = "12345678";
              it.list[0].end = "abcdefgh";
          }),
          inFull("periodic list 12345678 to abcdefgh sun mon tue wed thu fri sat \n")},
         {"list of bits that are no weekday", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.list[0].weekdays = {{0x80, 0xff}};
              it.list[0].start = "1";
          }),
          inFull("periodic list 1 to  \n")},

         {"equal", Mode::delta, timeRanges, rangeChanged([](TimeRange &) {}), ""},
         {"new", Mode::delta, timeRanges, [](auto &current, auto &) { current.timeRanges[0] = someRange(); },
          "time-range range\nabsolute start 08:00 02 jun 2025\nabsolute end 18:30 30 sep 2026\n"
          "periodic 08:00 mon to 17:00 fri\nperiodic 10:00 sun to 11:00 sat\n"
          "periodic list 12:00 to 13:00 mon wed \nperiodic list 20:00 to 21:00 sun sat \nexit\n"},
         {"removed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it = {}; }), ""},
         {"name removed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.name = ""; }), ""},
         {"renamed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.name = "other"; }),
          "time-range other\nexit\n"},
         {"first and last slot", Mode::delta, timeRanges,
          [](auto &current, auto &) {
              current.timeRanges[9].name = "last";
              current.timeRanges[0].name = "first";
          },
          "time-range first\nexit\ntime-range last\nexit\n"},
         {"after the last slot", Mode::full, timeRanges,
          [](auto &current, auto &) { bytesAt(current, 202992 + 10 * 204)[164] = 'x'; }, ""},
         {"after the last slot", Mode::delta, timeRanges,
          [](auto &current, auto &) { bytesAt(current, 202992 + 10 * 204)[164] = 'x'; }, ""},
         {"first byte", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.absoluteStart.characters[0] = '1'; }),
          inDelta("absolute start 18:00 02 jun 2025\n")},
         {"last byte of a name", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.name.characters[39] = 'x'; }), inDelta("")},
         {"start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteStart = "9,1,0,2"; }),
          inDelta("absolute start 9 01  2\n")},
         {"start cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteStart = ""; }),
          inDelta("")},
         {"end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteEnd = "9,1,12,2"; }),
          inDelta("absolute end 9 01 dec 2\n")},
         {"end cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteEnd = ""; }),
          inDelta("")},
         {"after the end of the texts", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) {
              it.absoluteStart.characters[31] = it.absoluteEnd.characters[31] = 'x';
              for (int k = 0; k < 2; ++k) {
                  it.periodic[k].start.characters[15] = it.periodic[k].end.characters[15] = 'x';
                  it.list[k].start.characters[7] = it.list[k].end.characters[7] = 'x';
              }
          }),
          inDelta("")},
         {"last characters of the texts", Mode::delta, timeRanges,
          [](auto &current, auto &defaults) {
              TimeRange &it = current.timeRanges[0];
              it.name = "range";
              it.absoluteStart = it.absoluteEnd = "abcdefghijklmnopqrstuvwx,01,2,20";
              for (int k = 0; k < 2; ++k) {
                  it.periodic[k].start = it.periodic[k].end = "1,abcdefghijklmn";
                  it.list[k].start = it.list[k].end = "12345678";
              }
              defaults.timeRanges[0] = it;
              it.absoluteStart.characters[31] = it.absoluteEnd.characters[31] = '1';
              it.periodic[0].start.characters[15] = it.periodic[1].end.characters[15] = '!';
              it.list[0].start.characters[7] = it.list[1].end.characters[7] = '9';
          },
          inDelta("absolute start abcdefghijklmnopqrstuvwx 01 feb 21\nabsolute end abcdefghijklmnopqrstuvwx 01 feb 21\n"
                  "periodic abcdefghijklm! mon to abcdefghijklmn mon\n"
                  "periodic abcdefghijklmn mon to abcdefghijklm! mon\n"
                  "periodic list 12345679 to 12345678 \nperiodic list 12345678 to 12345679 \n")},
         {"periodic start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[0].start = "2,9"; }),
          inDelta("periodic 9 tue to 17:00 fri\n")},
         {"periodic end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[1].end = "2,9"; }),
          inDelta("periodic 10:00 sun to 9 tue\n")},
         {"periodic start cleared", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.periodic[0].start = ""; }), inDelta("periodic  sun to 17:00 fri\n")},
         {"periodic end cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[0].end = ""; }),
          inDelta("periodic 08:00 mon to  sun\n")},
         {"periodic cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[1] = {}; }),
          inDelta("")},
         {"list start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[0].start = "9"; }),
          inDelta("periodic list 9 to 13:00 mon wed \n")},
         {"list end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[1].end = "9"; }),
          inDelta("periodic list 20:00 to 9 sun sat \n")},
         {"list start cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[1].start = ""; }),
          inDelta("periodic list  to 21:00 sun sat \n")},
         {"list cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[0] = {}; }), inDelta("")},
         {"weekdays alone", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) {
              it.list[0].weekdays.set(5);
              it.list[1].weekdays = {};
          }),
          inDelta("")},
     }));

/// Any of the 204 bytes of a time range makes it differ.
TEST(TimeRanges, EveryByteCounts) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) image->timeRanges[0] = image->timeRanges[9] = someRange();
    };
    for (const std::size_t at : {std::size_t{202992}, std::size_t{202992 + 9 * 204}})
        expectCounting(timeRanges, given, at, at + 203, {{at, at + 203, "time-range "}});
}
