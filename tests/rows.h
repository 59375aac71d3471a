/// Tests are rows: a name, a mode, an emitter, a store and the exact text, compared whole.
///
/// The emitter is called as the order table calls it, so that a row also holds the sections that it is handed. The
/// store is composed on the typed record, on zero images and a zero board.
#pragma once

#include "app/order.h"
#include "app/text/text.h"
#include "fake_platform.h"
#include "platform/board.h"
#include "platform/image.h"
#include "setter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

enum class Mode { full, delta };

struct Row {
    const char *name;
    Mode mode;
    const char *emitter;
    Setter<void(ConfigImage &current, ConfigImage &defaults)> given;
    std::string text;
};

/// Zero images, a zero board, an empty text, a platform as it is before each test.
void resetAll();
/// An empty text for a further step. It is made as a caller of the emitters makes it, and not all bytes are cleared,
/// which would take longer than most steps.
void restartText();

/// The emitter's step of the order table in `mode`. Throws std::invalid_argument if there is none.
order::Call stepOf(Mode mode, const char *emitter);
/// Calls it.
void callStep(Mode mode, const char *emitter);

/// What the driver of `mode` writes for a store, from "configure" on.
std::string renderPage(Mode mode, const Setter<void(ConfigImage &, ConfigImage &)> &given);

/// The file `name` below tests/golden.
std::string golden(const std::string &name);

/// What is printed on standard output while `body` runs.
std::string printedBy(const std::function<void()> &body);

/// A text of `width` characters without terminator: "abc…zabc…".
std::string letters(std::size_t width);

/// Remembers that a test holds these lines of an emitter. When all tests have run, each literal of the sources must
/// have been one of them.
void holdLines(Mode mode, const char *emitter, const std::string &text);

/// A failing row names its emitter.
void PrintTo(const Row &row, std::ostream *out);

/// Registers a test. A failure prints `parameter`. Throws std::invalid_argument if there is such a test.
void registerTest(const std::string &suite, const std::string &name, const std::string &parameter, const char *file,
                  int line, std::function<testing::Test *()> make);

/// Registers a test of each row.
struct RowSet {
    RowSet(const char *area, const char *file, int line, const std::vector<Row> &rows);
};

/// The rows of an area: `ROWS(Layer2, vector of rows)`. They are registered by one function instead of by templates of
/// GoogleTest in each file, which would take the compiler a second each.
#define ROWS(area, ...) static const RowSet rowsOf##area(#area, __FILE__, __LINE__, std::vector<Row> __VA_ARGS__)
