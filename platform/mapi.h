/**
 * The switch's management API, as far as this program uses it.
 *
 * A firmware links its own implementation. On a workstation a stand-in takes its place. The header is C, so that
 * either side may be C or C++.
 */
#ifndef TEXTCFG_PLATFORM_MAPI_H
#define TEXTCFG_PLATFORM_MAPI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** No transaction: what a failed start returns, and what is passed to operations that are called without one. */
#define MAPI_NO_TRANSACTION (-1)

/** Bytes of the board information record. */
#define MAPI_EEPROM_INFO_SIZE 244

/** Bytes of a configuration image. */
#define MAPI_CONFIG_IMAGE_SIZE 262144

/** Bytes that `mapi_sys_userauth_password_md5_get` may write, the terminating NUL among them. */
#define MAPI_PASSWORD_MD5_SIZE 64

/** Image selectors of `mapi_sys_config_getconfig`. */
enum { MAPI_CONFIG_RUNNING = 0, MAPI_CONFIG_DEFAULT = 1, MAPI_CONFIG_STARTUP = 2, MAPI_CONFIG_CUSTOMER_DEFAULT = 3 };

/**
 * Opens a transaction. A second one is opened while the first is open, so the platform must allow two at a time from
 * one process.
 *
 * Returns the transaction's handle, or -1 if none could be opened.
 */
int32_t mapi_start_transc(void);

/** Closes the transaction `handle`. The result is not looked at. */
int32_t mapi_end_transc(int32_t handle);

/**
 * Fills the board information record at `record`: 244 bytes, numbers big-endian.
 *
 * Returns 0 on success; anything else ends the run with status -1.
 */
int32_t mapi_sys_eeprom_info_get(int32_t handle, void *record);

/**
 * Copies the configuration image chosen by `selector` to `image`: 262,144 bytes, numbers big-endian.
 *
 * Returns 0 on success; anything else ends the run with status -1.
 */
int32_t mapi_sys_config_getconfig(int32_t handle, int32_t selector, void *image);

/** Returns the image bank in use: 1 or 2. Any other value leaves the header's version text empty. */
int32_t mapi_sys_dualimage_state_get(int32_t handle);

/** Returns non-zero when passwords are stored MD5-encrypted. Called with -1, without a transaction. */
int32_t mapi_sys_userauth_method_get(int32_t handle);

/**
 * Writes the MD5 form of the NUL-terminated `password` as text to `md5`, at most MAPI_PASSWORD_MD5_SIZE bytes with its
 * NUL. The program keeps the first 24 characters of it, the width of the field. Called with -1, without a transaction.
 * The result is not looked at: a platform that cannot tell leaves `md5` as it is, which is empty.
 */
int32_t mapi_sys_userauth_password_md5_get(int32_t handle, const char *password, char *md5);

#ifdef __cplusplus
}
#endif

#endif
