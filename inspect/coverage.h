/// What the text has of each byte of the image, found by experiment.
///
/// Each byte of a field, or each bit of a set, is given several values in the current image and in the default image of
/// several stores, and the steps that read it are rendered in both modes. Of an array and of a table the first, a
/// middle and the last entry are tried.
#pragma once

#include "inspect/fields.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

/// What both modes have of a field, in words: one for all of its bytes, or one for each part, as in
/// `written (bytes 0-30); with others (bytes 31-32)`.
///
/// Full mode: `written` (the text changes with the current image), `default` (with the default image), both, or `-`.
///
/// Delta mode: `written` (a change of the field alone gives lines that have its value), `partly` (the same, but some
/// change that full mode shows gives no line), `compared` (a change of the field alone gives lines, the same for each
/// value), `with others` (it shows only where something else is different too), `default` (only what the default image
/// has shows), or `-`.
struct FieldCoverage {
    std::string path; ///< `users[].name`; with the number of the entry where entries differ
    std::string full;
    std::string delta;
    bool isReserved;
};

/// The fields of the image in their order, without reserved bytes that no mode reads. `every` greater than 1 tries one
/// field in so many, the first being number `first`.
std::vector<FieldCoverage> coverageOfImage(std::size_t every = 1, std::size_t first = 0);

/// Tries all reserved bytes, in both images and both modes: each that changes the text of a step though the step does
/// not declare to read it, or though it is not an exception, is named. Empty if there is none. `every` greater than 1
/// tries one step in so many.
std::vector<std::string> reservedBytesThatShow(std::size_t every = 1);

/// A field that is not simply written in both modes, and the reason.
struct CoverageException {
    std::string_view path;
    std::string_view full;
    std::string_view delta;
    std::string_view reason;
};
std::span<const CoverageException> coverageExceptions();

} // namespace inspect
