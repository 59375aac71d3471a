/// The first lines of a text.
#pragma once

/// Header of the running and startup configuration: clears the text, then writes the version line and "configure".
/// Learns the image bank in its own transaction; if that cannot be opened, the text is left as it is, without header.
void initTempConfig();
/// Header of the default and customer default configuration: the same.
void initDefConfig();
/// Header of a page: clears the text and writes "configure" alone.
void initHtmlConfig();
