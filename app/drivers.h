/// The rendering drivers: a header, then every emitter in the one order of `app/order.h`, each exactly once.
///
/// All of them render the image `gSysConfig` into `Temp_Configuration`; the delta drivers write what differs
/// from the image `gDefConfig`. None fails; the text buffer knows whether the text fits.
#pragma once

// Those who link the library call them from C.
extern "C" {
#pragma GCC visibility push(default)
void convConfig();          ///< full mode, header of the running and startup configuration
void convDefConfig();       ///< full mode, header of the default and customer default configuration
void convHtmlConfig();      ///< full mode, as a page: no version line
void convDeltaConfig();     ///< delta mode, header of the running and startup configuration
void convDeltaDefConfig();  ///< delta mode, header of the default and customer default configuration
void convDeltaHtmlConfig(); ///< delta mode, as a page: no version line
#pragma GCC visibility pop
}
