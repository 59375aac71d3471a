/**
 * textcfg as a library, for a program of the firmware that renders the configuration without starting a process.
 *
 * A rendering takes five steps:
 *
 *   1. fill textcfg_current_image(), textcfg_default_image() and textcfg_board_record() from the management API;
 *   2. call textcfg_clear();
 *   3. call one of the six drivers;
 *   4. ask textcfg_overflowed(): if it is not 0, the text is not whole and must not be used;
 *   5. read textcfg_text(), or have it written with textcfg_write().
 *
 * All buffers are static: the two images, the board record, the text and a line. So there is one rendering at a time in
 * a process; the caller keeps a second one out, with a lock of his own, until he has done with the text. The caller
 * also clears. The drivers clear the text themselves, except that one that cannot open its transaction for the first
 * line goes on after the text that is there. The images and the record stay as they are until the caller fills them
 * again, but for the users of the current image: a driver puts the MD5 form of a password into its field.
 *
 * Nothing here takes memory from the heap, throws or ends the process. The drivers call the platform
 * (platform/mapi.h, platform/util.h).
 */
#ifndef TEXTCFG_H
#define TEXTCFG_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#ifdef __GNUC__
#pragma GCC visibility push(default)
#endif

/** Returns "textcfg" and the version, as in "textcfg 1.0.0". */
const char *textcfg_version(void);

/** The image that is rendered, MAPI_CONFIG_IMAGE_SIZE bytes, aligned to a cache line. */
void *textcfg_current_image(void);

/** The image that the current one is compared with, MAPI_CONFIG_IMAGE_SIZE bytes. All drivers read it. */
void *textcfg_default_image(void);

/** The board information record, MAPI_EEPROM_INFO_SIZE bytes. */
void *textcfg_board_record(void);

/** Clears the text, and that it overflowed. */
void textcfg_clear(void);

/* The drivers. Full mode writes every setting, delta mode what differs from the default image. */
void convConfig(void);          /**< full mode, with the header of the running and startup configuration */
void convDefConfig(void);       /**< full mode, with the header of the default configurations */
void convHtmlConfig(void);      /**< full mode, as a page: no version line */
void convDeltaConfig(void);     /**< delta mode, with the header of the running and startup configuration */
void convDeltaDefConfig(void);  /**< delta mode, with the header of the default configurations */
void convDeltaHtmlConfig(void); /**< delta mode, as a page: no version line */

/** Returns the text, which ends with a NUL. It stays until the next clearing or rendering. */
const char *textcfg_text(void);

/** Returns the bytes of the text, without the NUL. */
size_t textcfg_length(void);

/** Returns 1 if a line did not fit since the text was last cleared, else 0. */
int textcfg_overflowed(void);

/**
 * Writes the text to the file `path`, created or truncated. Returns 0, or -1 if the file could not be opened or not be
 * written whole; it is left empty then.
 */
int textcfg_write(const char *path);

/** Non-zero makes the drivers print the names of the sections on standard output. 0 at the start. */
extern int32_t gCfgDebug;

#ifdef __GNUC__
#pragma GCC visibility pop
#endif

#ifdef __cplusplus
}
#endif

#endif
