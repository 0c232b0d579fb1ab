/* The C interface of Velmorankite: grid routines for callers in C, Fortran and whatever calls C.
 * SPDX-License-Identifier: MIT
 *
 * Conventions, the same for every routine:
 * - Every argument is a pointer. The library keeps none of them beyond the call.
 * - A text is a buffer with its length, not a C string: unused characters are blanks, trailing
 *   blanks do not count, and neither does what follows a NUL. The lengths stand by value behind
 *   all other arguments, one for each text in their order. A name given as a C string has the
 *   length strlen(name). Texts that come back are blank padded and never cut: one that does not
 *   fit is a failure.
 * - grid_ints has VELMORANKITE_DESCRIPTION_WORDS integers, grid_reals as many doubles: the grid
 *   description. The indices of their words are named below.
 * - Columns and rows count from 1, row 1 being the lowest Y; byte positions count from 1.
 *   Coordinates are those of cell centres, in map units.
 * - A cell without data is VELMORANKITE_DUMMY, or any value not above -1.0E30.
 * - A status is 0 or a positive count for success and negative for a failure. Where a file
 *   operation failed it is VELMORANKITE_FILE_FAILED, and the words are kept for
 *   VELMORANKITE_LAST_ERROR. A routine without a status argument and without a value of its own
 *   returns its status.
 * - No call ends the process. What the library keeps between calls (open files, the words of the
 *   last failure) it keeps for each thread.
 */
#ifndef VELMORANKITE_VELMORANKITE_H
#define VELMORANKITE_VELMORANKITE_H

#include <stddef.h> /* NOLINT(modernize-deprecated-headers): read as C too */
#include <stdint.h> /* NOLINT(modernize-deprecated-headers) */

#if defined(_WIN32)
#define VELMORANKITE_API __declspec(dllexport)
#elif defined(__GNUC__)
#define VELMORANKITE_API __attribute__((visibility("default")))
#else
#define VELMORANKITE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Numbers ------------------------------------------------------------------------------- */

#define VELMORANKITE_DUMMY             (-1.0E32F)
#define VELMORANKITE_DESCRIPTION_WORDS 24

/* Failures that every routine can meet, beside those that stand with it. */
enum {
  VELMORANKITE_FILE_FAILED = -9001,   /* a file operation failed, or a file is not sound */
  VELMORANKITE_OUT_OF_MEMORY = -9002, /* an array could not be allocated */
  VELMORANKITE_TEXT_TOO_LONG = -9003, /* a text that comes back does not fit its buffer */
  VELMORANKITE_FAILED = -9004         /* anything else */
};

/* Words of grid_ints, as C indices. */
enum {
  VELMORANKITE_FORMAT_CODE = 0,  /* catalogue code; 2 is the standard grid */
  VELMORANKITE_BAND_COUNT = 1,   /* bands in the file */
  VELMORANKITE_BAND_SELECT = 2,  /* band to convert; standard grid: the process flag */
  VELMORANKITE_DATA_OFFSET = 3,  /* bytes, in a text file lines, ahead of the first cell */
  VELMORANKITE_ELEMENT_CODE = 4, /* bytes a cell; negative: big-endian, standard grid: compressed */
  VELMORANKITE_STORAGE_SENSE = 5, /* 1: rows from the lowest Y up; -2: rows from the highest down */
  VELMORANKITE_ELEMENT_KIND = 6,  /* 0 unsigned, 1 signed, 2 floating point, 4 coded doubles */
  VELMORANKITE_X_COUNT = 7,       /* cells along X */
  VELMORANKITE_Y_COUNT = 8,       /* cells along Y */
  VELMORANKITE_VALID_COUNT = 15,  /* after a conversion: cells with data */
  VELMORANKITE_DUMMY_COUNT = 16   /* after a conversion: cells without data */
};

/* Words of grid_reals, as C indices. */
enum {
  VELMORANKITE_X_MIN = 0, /* centre of the first column */
  VELMORANKITE_X_MAX = 1, /* centre of the last column */
  VELMORANKITE_Y_MIN = 2, /* centre of the lowest row */
  VELMORANKITE_Y_MAX = 3, /* centre of the highest row */
  VELMORANKITE_X_CELL = 4,
  VELMORANKITE_Y_CELL = 5,
  VELMORANKITE_DUMMY_VALUE = 6, /* marks a cell without data in this file */
  VELMORANKITE_Z_BASE = 7,      /* true value = stored value / z_mult + z_base */
  VELMORANKITE_Z_MULT = 8,
  VELMORANKITE_Z_MIN = 9, /* smallest and largest true value, where the file tells them */
  VELMORANKITE_Z_MAX = 10,
  VELMORANKITE_Z_MID = 11,   /* standard grid: median; after a conversion: mean */
  VELMORANKITE_Z_SPREAD = 12 /* standard grid: mean; after a conversion: standard deviation */
};

/* ---- Failures ------------------------------------------------------------------------------ */

/* Words of the last failure on this thread, for instance the file and the system's reason. They
 * stay until the next failure. Returns their length, at most VELMORANKITE_WORDS; what does not fit
 * the buffer is cut. */
#define VELMORANKITE_WORDS 1024
VELMORANKITE_API int32_t VELMORANKITE_LAST_ERROR(char* text, size_t text_length);

/* ---- Files by unit number ------------------------------------------------------------------ */

/* Opens a file for reading and writing at byte positions on unit 0, making it if it is missing;
 * a file that was open on unit 0 is closed. Returns 0. */
VELMORANKITE_API int32_t FCREAT(const char* name, size_t name_length);

/* Opens an existing file, for reading alone if it cannot be written. Returns its unit, the first
 * free one from 101 on, or -1 if the file does not exist. With units 101 to 999 in use it takes
 * unit 1000, and closes the file that was open there. */
VELMORANKITE_API int32_t FOPEN(const char* name, size_t name_length);

/* Closes the file of a unit. Returns 0. */
VELMORANKITE_API int32_t FCLOSE(const int32_t* unit);

/* ---- Files by blocks ----------------------------------------------------------------------- */

/* These take bytes to and from a file through a buffer of the caller's of at least 4096 bytes. The
 * caller holds three numbers beside it: the unit, the position in the buffer (from 0; writing:
 * bytes that are pending, reading: bytes taken of the present block) and the blocks that went
 * through. An opening serves for writing or for reading. */

/* Opens a file, and makes it if there is none.
 *   unit, position, block_count  out; the last two are 0 where the file was opened.
 *   status  0, or the negated error number of the system. */
VELMORANKITE_API void OPENBUFF(const char* name, int32_t* unit, int32_t* position,
                               int32_t* block_count, int32_t* status, size_t name_length);

/* Adds `count` bytes. Where VAL2BUF has filled the buffer beyond 4096 bytes, its whole blocks are
 * written first.
 *   status  0, or -1 for a count below 1. */
VELMORANKITE_API void PUTBUF(const int32_t* count, const void* data, const int32_t* unit,
                             int32_t* position, int32_t* block_count, char* buffer,
                             int32_t* status);

/* Takes the next `count` bytes.
 *   status  0, -1 where the file has no further whole block, or the negated error number of the
 *           system; what came before the failure stands in `data`. */
VELMORANKITE_API void GETBUF(const int32_t* count, void* data, const int32_t* unit,
                             int32_t* position, int32_t* block_count, char* buffer,
                             int32_t* status);

/* Writes what is pending, always a whole block, closes the file and sets position and block count
 * to 0. So a file written by PUTBUF has a multiple of 4096 bytes, and its contents must tell where
 * they end. Returns 0. */
VELMORANKITE_API int32_t CLOSBUFF(const int32_t* unit, int32_t* position, int32_t* block_count,
                                  char* buffer);

/* The byte offset from the file's start at which the last transfer on a unit ended. */
VELMORANKITE_API int64_t GETBUFFPOS(const int32_t* unit);

/* Moves the unit to a byte offset from the file's start: RDLINE goes on there. The blocks of the
 * routines above are not moved.
 *   status  0, or -1 for an offset below 0. */
VELMORANKITE_API void SETBUFFPOS(const int32_t* unit, const int64_t* offset, int32_t* status);

/* Reads a line that ends in LF, CR LF or CR, without its end, and as much of it as the text has
 * room for; the rest is left for the next call.
 *   length  out: of the line. An empty line and the end of the file both give 0. */
VELMORANKITE_API void RDLINE(const int32_t* unit, char* text, int32_t* length, size_t text_length);

/* ---- Values and their bytes ---------------------------------------------------------------- */

/* Takes a value of |n| bytes out of a buffer, from offset `position` on: in the buffer's order for
 * n above 0, reversed for n below 0, nothing for 0. */
VELMORANKITE_API void BUF2VAL(const int32_t* position, const char* buffer, const int32_t* n,
                              void* value);

/* Puts a value into a buffer by the same rule and moves `position` behind it. */
VELMORANKITE_API void VAL2BUF(int32_t* position, char* buffer, const int32_t* n, const void* value);

/* Takes n plot vectors (x and y as floats, a code as an integer, 12 bytes together) out of a buffer
 * and appends them to three arrays. Those that draw nothing, with code 3 and where the last one
 * lies, are left out, but the first and the last of a call never.
 *   position  byte offset in the buffer; out: moved by 12 n.
 *   order     above 0: this machine's byte order; below 0: the reverse; 0: the buffer is not read,
 *             the records of the call before are taken once more.
 *   count     in and out: elements in the arrays, which must have room for n more.
 * Returns 0. */
VELMORANKITE_API int32_t RDPLTVEC(int32_t* position, const char* buffer, const int32_t* order,
                                  const int32_t* n, float* x, float* y, int32_t* code,
                                  int32_t* count);

/* Copies a word of 4 bytes from a to b. */
VELMORANKITE_API void CPYBYT(const void* a, void* b);

/* Reverse the bytes of a value, or of each of n values, in place. */
VELMORANKITE_API void REVBYT2(int16_t* v);
VELMORANKITE_API void REVBYT4(int32_t* v);
VELMORANKITE_API void REVBYT(float* v);
VELMORANKITE_API void REVBYT8(double* v);
VELMORANKITE_API void CHREVARR2(const int32_t* n, int16_t* a);
VELMORANKITE_API void CHREVARR4(const int32_t* n, int32_t* a);
VELMORANKITE_API void CHREVARR(const int32_t* n, float* a);
VELMORANKITE_API void CHREVARR8(const int32_t* n, double* a);

/* Return the value of 2, 4, 4 or 8 reversed bytes; REVI2 extends its sign. */
VELMORANKITE_API int32_t REVI2(const void* v);
VELMORANKITE_API int32_t REVI4(const void* v);
VELMORANKITE_API float REVR4(const void* v);
VELMORANKITE_API double REVR8(const void* v);

/* A double put together by arithmetic from its 8 bytes, big-endian for order code 1, else
 * little-endian. All-zero bytes give 2 to the power -1023. */
VELMORANKITE_API double DECODE_VULCAN_BINARY(const void* bytes, const int32_t* order_code);

/* ---- Texts and 64-bit integers ------------------------------------------------------------- */

/* Line ends of a text file, from its first 1024 bytes: 0 CR LF, 1 LF, 2 CR, -1 not settled. */
VELMORANKITE_API int32_t ISFILEUNIX(const char* name, size_t name_length);

/* Makes NULs blanks and moves the text to the front. `length` out: without trailing blanks. */
VELMORANKITE_API void FTRIM(char* text, int32_t* length, size_t text_length);

/* `length` out: of the text up to its last character that is neither a blank nor a NUL. */
VELMORANKITE_API void FTAIL(const char* text, int32_t* length, size_t text_length);

/* Folds a to z to upper case in the first `length` characters. */
VELMORANKITE_API void FUPPER(char* text, const int32_t* length, size_t text_length);

/* c = a + b, a - b, a * b and a / b, modulo 2^64; a quotient is truncated, and 0 for b = 0. */
VELMORANKITE_API void ADDI8A(const int64_t* a, const int64_t* b, int64_t* c);
VELMORANKITE_API void SUBTRACTI8A(const int64_t* a, const int64_t* b, int64_t* c);
VELMORANKITE_API void MULTIPLYI8A(const int64_t* a, const int64_t* b, int64_t* c);
VELMORANKITE_API void DIVIDEI8A(const int64_t* a, const int64_t* b, int64_t* c);
/* 1 if a is greater than b, -1 if it is less, 0 if they are equal. */
VELMORANKITE_API int32_t COMPAREI8A(const int64_t* a, const int64_t* b);

/* The same for numbers held as high * 2^32 + low, low without a sign. */
VELMORANKITE_API void ADDI8(const int32_t* a_high, const int32_t* a_low, const int32_t* b_high,
                            const int32_t* b_low, int32_t* c_high, int32_t* c_low);
VELMORANKITE_API void SUBTRACTI8(const int32_t* a_high, const int32_t* a_low, const int32_t* b_high,
                                 const int32_t* b_low, int32_t* c_high, int32_t* c_low);
VELMORANKITE_API void MULTIPLYI8(const int32_t* a_high, const int32_t* a_low, const int32_t* b_high,
                                 const int32_t* b_low, int32_t* c_high, int32_t* c_low);
VELMORANKITE_API void DIVIDEI8(const int32_t* a_high, const int32_t* a_low, const int32_t* b_high,
                               const int32_t* b_low, int32_t* c_high, int32_t* c_low);
VELMORANKITE_API int32_t COMPAREI8(const int32_t* a_high, const int32_t* a_low,
                                   const int32_t* b_high, const int32_t* b_low);

/* A count of bytes in words, as "1536" and "1.50 KB". "*" stands for what cannot be told or has no
 * room: digits longer than their text, the size of a negative count. */
VELMORANKITE_API void ENCODEI8A(const int64_t* value, char* digits, char* size,
                                size_t digits_length, size_t size_length);
VELMORANKITE_API void ENCODEI8(const int32_t* value_high, const int32_t* value_low, char* digits,
                               char* size, size_t digits_length, size_t size_length);

/* ---- Standard grid ------------------------------------------------------------------------- */

/* Reads the header of the standard grid that is open on a unit. The status becomes -1 if the
 * element size is not 1, 2 or 4, a count is below 1 or a spacing not above 0, and is not touched
 * on success; all other arguments hold what was read in both cases. */
VELMORANKITE_API void READ_GEOSOFT_HEADER(const int32_t* unit, int32_t* element_size,
                                          int32_t* sign_flag, int32_t* elements_per_row,
                                          int32_t* row_count, int32_t* storage_sense,
                                          double* x_origin, double* y_origin,
                                          double* element_spacing, double* row_spacing,
                                          double* z_base, double* z_mult, int32_t* process_flag,
                                          float* stat_min, float* stat_max, float* stat_median,
                                          float* stat_mean, double* stat_variance, int32_t* status);

/* The same with origin and spacings in single precision. */
VELMORANKITE_API void READ_GEOSOFT_HEADERS(const int32_t* unit, int32_t* element_size,
                                           int32_t* sign_flag, int32_t* elements_per_row,
                                           int32_t* row_count, int32_t* storage_sense,
                                           float* x_origin, float* y_origin, float* element_spacing,
                                           float* row_spacing, double* z_base, double* z_mult,
                                           int32_t* process_flag, float* stat_min, float* stat_max,
                                           float* stat_median, float* stat_mean,
                                           double* stat_variance, int32_t* status);

/* Writes the header of the file that is open on a unit, new or with cells in it. Element sizes
 * other than 1, 2 and 4 are written as 4, senses other than 1 as -2. Returns its status. */
VELMORANKITE_API int32_t OUTPUT_GEOSOFT_HEADER(
    const int32_t* unit, const int32_t* element_size, const int32_t* sign_flag,
    const int32_t* elements_per_row, const int32_t* row_count, const int32_t* storage_sense,
    const double* x_origin, const double* y_origin, const double* element_spacing,
    const double* row_spacing, const double* z_base, const double* z_mult,
    const int32_t* process_flag, const float* stat_min, const float* stat_max,
    const float* stat_median, const float* stat_mean);

/* The same with origin and spacings in single precision. */
VELMORANKITE_API int32_t
OUTPUT_GEOSOFT_HEADERS(const int32_t* unit, const int32_t* element_size, const int32_t* sign_flag,
                       const int32_t* elements_per_row, const int32_t* row_count,
                       const int32_t* storage_sense, const float* x_origin, const float* y_origin,
                       const float* element_spacing, const float* row_spacing, const double* z_base,
                       const double* z_mult, const int32_t* process_flag, const float* stat_min,
                       const float* stat_max, const float* stat_median, const float* stat_mean);

/* Returns the byte position of a cell, which must lie on the lattice. Senses other than 1 are
 * taken as -2. */
VELMORANKITE_API int64_t GRDCELLPOS(const int32_t* storage_sense, const int32_t* header_size,
                                    const int32_t* element_size, const int32_t* elements_per_row,
                                    const int32_t* row_count, const int32_t* row,
                                    const int32_t* column);

/* Values of a standard grid of 4-byte floats at points.
 *   source_flag  0: the grid is the file `path`; not 0: it lies in `cells`.
 *   cells        x_count x y_count cells, the first stored row first; NULL if source_flag is 0.
 *   mode         2: by logarithms, 3: log-linear, any other: the values as they are.
 *   point_count  of x, y and values. A negative count means its absolute value, and sets mode
 *                to 2.
 *   values       out: one a point, the dummy for a point outside the grid or on an empty cell.
 *   status       -1 for a blank path or no points; not touched on success. */
VELMORANKITE_API void GEO_CELL_INTERPOLATION(const int32_t* source_flag, const char* path,
                                             const int32_t* grid_ints, const double* grid_reals,
                                             const float* cells, int32_t* mode,
                                             const int32_t* point_count, const double* x,
                                             const double* y, float* values, int32_t* status,
                                             size_t path_length);

/* Makes a standard grid on the lattice of another, with its header statistics.
 *   target  "outfile.grd" if fewer than 2 characters are left of it.
 *   mode    0: the cells of the source; 1: zeros; any other: dummies.
 *   status  0, or what GRDRDH gives for the source. */
VELMORANKITE_API void GEOCLONE(const char* source, const char* target, const int32_t* mode,
                               int32_t* status, size_t source_length, size_t target_length);

/* Completes a stem to the first name that no file has: stem, four digits, ".tmp".
 *   name    in: the stem, blank for "~scratch", at least 8 characters shorter than the buffer;
 *           out: the name.
 *   length  out: characters of the name; on failure those of the stem.
 *   status  0; -1: the 257 names are taken, and `name` holds the last one tried, or the buffer is
 *           too short, and `name` is as it was. */
VELMORANKITE_API void GRDTMPNAME(char* name, int32_t* length, int32_t* status, size_t name_length);

/* Deletes a file if it exists. */
VELMORANKITE_API void GRDFILEDEL(const char* path, size_t path_length);

/* Copies a file and replaces the target, which is another file. Returns 1 for success, else 0. */
VELMORANKITE_API int32_t GRDFILECOPY(const char* source, const char* target, size_t source_length,
                                     size_t target_length);

/* Makes an empty file of a new name that begins with `prefix`. Returns 0, or -1 on failure. */
VELMORANKITE_API int32_t GRDOSTEMP(const char* directory, const char* prefix, char* result,
                                   size_t directory_length, size_t prefix_length,
                                   size_t result_length);

/* Runs a command in the system's shell and waits; it is cut at 255 characters. Returns 0 if it
 * ended with status 0, else -1. */
VELMORANKITE_API int32_t FSYSTEM(const char* command, size_t command_length);

/* Looks for a file in the folders of the environment variable "PATH". Returns the length of its
 * full path in `result`, 0 if there is none or it does not fit. */
VELMORANKITE_API int32_t FINDFILEINPATH(const char* name, char* result, size_t name_length,
                                        size_t result_length);

/* The version of this interface: 32, 5, 5. */
VELMORANKITE_API void ZRV_DLL_VERSION(int32_t* a, int32_t* b, int32_t* c);

/* Transforms one value in place: mode 2 by logarithms, 3 log-linear; direction 0 or above forth,
 * below 0 back. Other modes and cells without data stay as they are. */
VELMORANKITE_API void GRDZTRANS(const int32_t* mode, float* value, const int32_t* direction);

/* ---- Whole grids --------------------------------------------------------------------------- */

/* Finds the rectangle of a standard grid of 4-byte floats that holds data. Of the header only the
 * counts are looked at.
 *   first_column ... last_row  out: from 1; rows as they are stored, the lowest Y first in storage
 *           sense 1 and last in sense -2. Without data: columns, 1, rows, 1.
 *   status  -1 if no cell holds data, which a grid of one cell does not tell; not touched on
 *           success. */
VELMORANKITE_API void GEOLIMITS(const char* path, int32_t* first_column, int32_t* last_column,
                                int32_t* first_row, int32_t* last_row, int32_t* status,
                                size_t path_length);

/* Rewrites a standard grid of storage sense -2 in sense 1, the lowest row first; one of sense 1
 * stays as it is. Median and mean become unknown. Returns 0 or a negative status, and the grid is
 * then as it was: -1 for a header that is not sound (of a compressed grid, too), -2 for cells of
 * 1 byte and floats of other than 4, -3 for other senses. */
VELMORANKITE_API int32_t GEOVALID(const char* path, size_t path_length);

/* Cuts away the outer rows and columns of a standard grid that hold no data.
 *   input   grid of 4-byte floats, 4-byte or 2-byte integers. Not changed.
 *   output  "outfile.grd" if fewer than 2 characters are left of it; not the input.
 *   status  -1 if no cell holds data or the header is not sound, -2 for other cells, -3 for senses
 *           other than 1 and -2, nothing being written then; not touched on success. */
VELMORANKITE_API void GEOTRIM(const char* input, const char* output, int32_t* status,
                              size_t input_length, size_t output_length);

/* Turns a standard grid of 4-byte cells counter-clockwise by a quarter turn: what lay at (X, Y)
 * lies at (2 y_max - Y, X), with y_max the highest row of the input. Names as for GEOTRIM. Returns
 * 0 or a negative status, with nothing written: -1 for a header that is not sound, -2 for cells of
 * other than 4 bytes, -3 for senses other than 1 and -2. */
VELMORANKITE_API int32_t GEOFLIP(const char* input, const char* output, size_t input_length,
                                 size_t output_length);

/* ---- Grid file formats --------------------------------------------------------------------- */

/* Describes a grid file.
 *   band_names  out: names of the bands, entries of band_name_length characters, for as many
 *               bands as the format names, at most VELMORANKITE_BAND_NAMES; the first entry is
 *               always written. A name that is too long is cut. NULL: not wanted.
 *   status      0; -1 name too short, -1001 no such file, -1002 empty file, -1005 format not
 *               recognised, -1006 first bytes unreadable, -2001 header file missing, or that of
 *               the format's reader. */
#define VELMORANKITE_BAND_NAMES 256
VELMORANKITE_API void GRDRDH(const char* file_name, int32_t* grid_ints, double* grid_reals,
                             char* band_names, int32_t* status, size_t file_name_length,
                             size_t band_name_length);

/* The same with 22 reals in single precision. */
VELMORANKITE_API void GRDRDHS(const char* file_name, int32_t* grid_ints, float* grid_reals,
                              char* band_names, int32_t* status, size_t file_name_length,
                              size_t band_name_length);

/* Converts a grid file to a standard grid of 4-byte floats, highest row first.
 *   grid_ints, grid_reals  in: of the input, from GRDRDH; out: lattice, counts and statistics of
 *            what was written.
 *   x_start to y_step  the window, map units, and steps of columns and rows. A step of 0 asks for
 *            the whole grid; its limits then come back.
 *   status   0; -1 to -10902 as docs/c-interface.md lists; the number of a line of the file that
 *            cannot be read is -1000 less it. */
VELMORANKITE_API void GRDRDG(const char* input, const char* output, int32_t* grid_ints,
                             double* grid_reals, double* x_start, double* x_end, int32_t* x_step,
                             double* y_start, double* y_end, int32_t* y_step, int32_t* status,
                             size_t input_length, size_t output_length);

/* Another name of GRDRDG. */
VELMORANKITE_API void GRDRDGD(const char* input, const char* output, int32_t* grid_ints,
                              double* grid_reals, double* x_start, double* x_end, int32_t* x_step,
                              double* y_start, double* y_end, int32_t* y_step, int32_t* status,
                              size_t input_length, size_t output_length);

/* The same with 22 reals and the window in single precision. */
VELMORANKITE_API void GRDRDGS(const char* input, const char* output, int32_t* grid_ints,
                              float* grid_reals, float* x_start, float* x_end, int32_t* x_step,
                              float* y_start, float* y_end, int32_t* y_step, int32_t* status,
                              size_t input_length, size_t output_length);

/* Expands a compressed standard grid into a plain one. Status 0, or -20000 and below. */
VELMORANKITE_API void EXPUNCOMPGRID(const char* input, const char* output, int32_t* status,
                                    size_t input_length, size_t output_length);

/* The number of formats in the catalogue, 25. */
VELMORANKITE_API void GET_NUM_SUPPORTED_GRID_FORMATS(int32_t* count);

/* Name and mask of a format. Returns 0; -1, with the name "Unsupported", for a code outside the
 * catalogue. Code 0 leaves both texts as they are. */
VELMORANKITE_API int32_t GET_GRID_FORMAT_NAME(const int32_t* code, char* name, char* mask,
                                              size_t name_length, size_t mask_length);

/* Writes a standard grid of 4-byte floats.
 *   source     number of an open unit, from whose start the rows are read as floats; 0: rows of
 *              `array`, -1: the same from the last on, -999: z_min everywhere, any other: columns
 *              of `array`.
 *   sense      1, or any other for -2; rows come from the lowest Y up.
 *   dummy      marks a cell without data in the input.
 *   transform  2, 3: undoes a logarithmic transform.
 *   z_min, z_max  out: the range of the values; z_min in: the constant.
 *   status     0 or -1. */
VELMORANKITE_API void GEOOUT(const char* name, const int32_t* source, const int32_t* x_count,
                             const int32_t* y_count, const float* array, const int32_t* sense,
                             const double* x_origin, const double* y_origin,
                             const double* x_spacing, const double* y_spacing, const float* dummy,
                             const int32_t* transform, float* z_min, float* z_max, int32_t* status,
                             size_t name_length);

/* The same with the lattice in single precision. */
VELMORANKITE_API void GEOOUTS(const char* name, const int32_t* source, const int32_t* x_count,
                              const int32_t* y_count, const float* array, const int32_t* sense,
                              const float* x_origin, const float* y_origin, const float* x_spacing,
                              const float* y_spacing, const float* dummy, const int32_t* transform,
                              float* z_min, float* z_max, int32_t* status, size_t name_length);

/* Writes a standard grid of 2-byte integers.
 *   source   0, -1: the arrays; else the number of an open unit.
 *   sense    order of the input's lines: 1 and -2 from `rows`, -1 and 2 from `columns`.
 *   offset   bytes ahead of the first cell in the file of a unit.
 *   others   as GEOOUT. */
VELMORANKITE_API void GEOOUTI2(const char* name, const int32_t* source, const int32_t* sense,
                               const int32_t* x_count, const int32_t* y_count, const int16_t* rows,
                               const int16_t* columns, const int32_t* offset,
                               const double* x_origin, const double* y_origin,
                               const double* x_spacing, const double* y_spacing,
                               const int32_t* dummy, const int32_t* transform, float* z_min,
                               float* z_max, int32_t* status, size_t name_length);

/* The same with the lattice in single precision. */
VELMORANKITE_API void GEOOUTI2S(const char* name, const int32_t* source, const int32_t* sense,
                                const int32_t* x_count, const int32_t* y_count, const int16_t* rows,
                                const int16_t* columns, const int32_t* offset,
                                const float* x_origin, const float* y_origin,
                                const float* x_spacing, const float* y_spacing,
                                const int32_t* dummy, const int32_t* transform, float* z_min,
                                float* z_max, int32_t* status, size_t name_length);

/* ---- Grid conditioning --------------------------------------------------------------------- */

/* Writes a standard grid of 4-byte floats in which the cells without data of another have values.
 *   output        blank: the input is filled in place.
 *   road          not 0: every blank cell, from a pyramid of coarser copies; 0: enclosed holes
 *                 alone, from their rims inwards, by means of the cells near by.
 *   limit, spare  not used.
 *   minimum, maximum  out: on road 0 those of the valid cells of the input, else 0.
 *   filled_count  out: cells that got a value, with the nodes of the coarser copies.
 *   status        0; -999 the input cannot be opened; -1 no valid cell, or on the other roads
 *                 fewer than 4 columns or rows; or what GRDRDH gives. */
VELMORANKITE_API void GRID_FILL(const char* input, const char* output, const int32_t* road,
                                const int32_t* limit, float* minimum, float* maximum,
                                const float* spare, int32_t* filled_count, int32_t* status,
                                size_t input_length, size_t output_length);

/* The fill from a pyramid on a working lattice that may be larger than the input.
 *   grid_ints, grid_reals  of the input, from GRDRDH.
 *   x_count, y_count       of the working lattice.
 *   column_offset, row_offset  columns and rows of it ahead of the first input cell.
 *   memory_flag   bit 0: the input cells are taken from `cells`, and the filled rows put there.
 *   cells         x_count x y_count cells, the lowest row first; NULL if the bit is not set.
 *   output        the grid to make; blank: the input is filled in place.
 *   minimum, maximum  for the header of the output.
 *   filled_count  out: nodes that got a value, over all levels.
 *   status        0; -1 fewer than 4 columns or rows, or no valid cell. */
VELMORANKITE_API void GRDMIPMAP(const char* input, const int32_t* grid_ints,
                                const double* grid_reals, const int32_t* x_count,
                                const int32_t* y_count, const int32_t* column_offset,
                                const int32_t* row_offset, const int32_t* memory_flag, float* cells,
                                const char* output, const float* minimum, const float* maximum,
                                int32_t* filled_count, int32_t* status, size_t input_length,
                                size_t output_length);

/* Writes a grid on a working lattice that may be larger, and fills it from the rims of the data by
 * means of the cells near by: enclosed holes alone, or the whole lattice, where values far from the
 * data are drawn to a background. Data keep their coordinates. Rows are counted in the order of
 * the file here: with sense -2 the first is the highest.
 *   unit          an open standard grid of 4-byte floats, from FOPEN.
 *   sense         1 or -2, of source and output.
 *   source_columns, source_rows  of the source.
 *   grid_reals    of the source; x_min and y_min are read.
 *   x_cell, y_cell  cell sizes.
 *   spare         not used.
 *   pass_limit    above 0: an extension ends after the first pass beyond it, a pass being a layer
 *                 of cells.
 *   x_count, y_count  of the working lattice.
 *   column_offset, row_offset  columns and rows of it ahead of the first of the source.
 *   output        the standard grid to make.
 *   minimum, maximum  out: of the valid cells of the source; 0 on failure.
 *   background    in, out: one that is not above -1.0E30 is replaced by the mean of the source where
 *                 there is a blank.
 *   extend        0: enclosed holes; all others: the whole lattice.
 *   filled_count  in, out: grows by the blank cells that got a mean.
 *   status        0; -1 no file on the unit, cells other than 4-byte floats, counts, offsets, a sense
 *                 or cell sizes that are not sound, no output name, or no valid cell. */
VELMORANKITE_API void GRDEXT(const int32_t* unit, const int32_t* sense,
                             const int32_t* source_columns, const int32_t* source_rows,
                             const double* grid_reals, const double* x_cell, const double* y_cell,
                             const float* spare, const int32_t* pass_limit, const int32_t* x_count,
                             const int32_t* y_count, const int32_t* column_offset,
                             const int32_t* row_offset, const char* output, float* minimum,
                             float* maximum, float* background, const int32_t* extend,
                             int32_t* filled_count, int32_t* status, size_t output_length);

/* Fits the plane a + b x + c y to a standard grid of 4-byte floats by least squares, and can take
 * it off. x and y are distances from the first cell in map units; on a storage sense other than 1
 * the first row is the highest, and y grows southwards from one cell there.
 *   scope    1: every cell with data is a sample; 0: the ends of rows and columns alone.
 *   output   the residual grid; the plane goes to `<stem>_trend.grd`. Blank: fit only.
 *   mean     out: of all cells with data.
 *   a, b, c  out.
 *   status   0; -1 no cell with data, -997 the plane's grid, -998 the residual grid cannot be
 *            written or is the input, -999 the input cannot be described or opened. */
VELMORANKITE_API void GRID_DETREND_PLANE(const int32_t* scope, const char* input,
                                         const char* output, float* mean, float* a, float* b,
                                         float* c, int32_t* status, size_t input_length,
                                         size_t output_length);

/* The same with scope 0. */
VELMORANKITE_API void GRID_DETREND(const char* input, const char* output, float* mean, float* a,
                                   float* b, float* c, int32_t* status, size_t input_length,
                                   size_t output_length);

/* An earlier form: every cell that ends a row or a column is a sample once, an output must be
 * given, and the plane goes to `<stem>_detrend.grd`. Status as GRID_DETREND_PLANE. */
VELMORANKITE_API void GRID_DETREND_OLD(const char* input, const char* output, float* mean, float* a,
                                       float* b, float* c, int32_t* status, size_t input_length,
                                       size_t output_length);

/* ---- Splines ------------------------------------------------------------------------------- */

/* Fits a cubic spline. After de Boor 1978.
 *   n     nodes; fewer than 2 are left alone.
 *   tau   their abscissae, strictly ascending: it is not tested.
 *   c     n records of 4 doubles. In: word 1 the value; word 2 of the first and of the last record
 *         the boundary value, where the code asks for one. Out: word 1 as it was, words 2 to 4 the
 *         first to third derivative at the node; words 3 and 4 of the last record mean nothing.
 *   begin_code, end_code  0 or less: not-a-knot; 1: word 2 is the slope at that end; 2 or more: it
 *         is the second derivative. */
VELMORANKITE_API void CUBSPL(const int32_t* n, const double* tau, double* c,
                             const int32_t* begin_code, const int32_t* end_code);

/* Returns the spline's value at x; beyond the table the value at its end. */
VELMORANKITE_API double CUBVAL(const int32_t* n, const double* tau, const double* c,
                               const double* x);

/* Returns the integral from a to b, a <= b; beyond the table the outer cubics go on. */
VELMORANKITE_API double CUBINT(const int32_t* n, const double* tau, const double* c,
                               const double* a, const double* b);

/* Returns the same integral of t times the spline, t measured from the left node of each interval
 * anew. Mind the order of the first three arguments. */
VELMORANKITE_API double CUBINT2(const double* tau, const double* c, const int32_t* n,
                                const double* a, const double* b);

/* Finds the entry of an ascending table that stands left of x: xt(left) <= x < xt(left + 1).
 *   left  out: from 1.
 *   flag  out: 0; -1 for x below xt(1), left is 1; 1 for x from the last entry on, left is the
 *         count. */
VELMORANKITE_API void INTERV(const double* xt, const int32_t* count, const double* x, int32_t* left,
                             int32_t* flag);

/* The same in a descending table: xt(left) > x >= xt(left + 1).
 *   flag  out: 0; -1 for x from xt(1) up, left is 1; 1 for x below the last entry, left is the
 *         count. */
VELMORANKITE_API void RINTERV(const double* xt, const int32_t* count, const double* x,
                              int32_t* left, int32_t* flag);

/* Fits a spline under tension. After Cline 1974.
 *   x        n abscissae, strictly ascending.
 *   c        n records of 3 doubles. In: word 1 the value. Out: for TCUBVAL.
 *   first_slope, last_slope  slopes at the ends, where they are given.
 *   slope_switch  0: both are given; 1: the last is computed from the outer nodes; 2: the first
 *            is; 3: both are.
 *   tension  0: the cubic spline; the larger, the nearer to the polygon. The sign does not count.
 *   error    out: 0; 1 for n below 2; 2 where x does not ascend. */
VELMORANKITE_API void TCUBSPL(const int32_t* n, const double* x, double* c,
                              const double* first_slope, const double* last_slope,
                              const int32_t* slope_switch, const double* tension, int32_t* error);

/* Returns the value of the spline under tension at t; beyond the table the outer intervals go
 * on. */
VELMORANKITE_API double TCUBVAL(const int32_t* n, const double* x, const double* c,
                                const double* t);

/* ---- Rotation and drape -------------------------------------------------------------------- */

/* Puts a plain standard grid of 4-byte floats or signed 2-byte integers on a lattice that is
 * turned, shifted and scaled against it, by the bilinear form, one missing corner of four being
 * made up for. The output has the kind of cells of the input, z base 0 and z mult 1. output
 * "outfile.grd" if fewer than 2 characters are left of it. dx to rows  cell sizes, origin (centre
 * of the lowest left cell), counts of the input and of the output. angle     degrees by which the
 * contents turn from X towards Y. pivots    the point of the output's space that falls on a point
 * of the input's. scales    of the output against the input, along the turned axes; not 0.
 *   sense_out 1: rows from the lowest Y; any other: from the highest.
 *   spare     is not read.
 *   stat_min, stat_max  go into the output's header.
 *   status    0; -1 a blank name, a header that is not sound or cells of 1 byte; -2 other cells or
 *             senses; -3 fewer than 2 columns or rows; -4 counts that are not the header's; -5 an
 *             output lattice that is not sound; -6 a number that is not finite, or a scale of 0.
 *             Nothing is then written. */
VELMORANKITE_API void GEOROT(const char* input, const char* output, const double* dx_in,
                             const double* dy_in, const double* x0_in, const double* y0_in,
                             const int32_t* columns_in, const int32_t* rows_in,
                             const double* dx_out, const double* dy_out, const double* x0_out,
                             const double* y0_out, const int32_t* columns_out,
                             const int32_t* rows_out, const float* angle, const double* x_pivot_out,
                             const double* y_pivot_out, const double* x_pivot_in,
                             const double* y_pivot_in, const double* x_scale, const double* y_scale,
                             const int32_t* sense_out, const void* spare, const float* stat_min,
                             const float* stat_max, int32_t* status, size_t input_length,
                             size_t output_length);

/* The same by the cubic of GEO_CELL_INTERPOLATION for 4-byte floats, on the lattice that the
 * input's header tells: dx_in to rows_in count only for 2-byte integers, which go to GEOROT with
 * the counts of the header.
 *   mode    2: by logarithms, 3: log-linear, any other: the values as they are.
 *   status  also what GRDRDH gives for the input. */
VELMORANKITE_API void GEOROTD(
    const char* input, const char* output, const double* dx_in, const double* dy_in,
    const double* x0_in, const double* y0_in, const int32_t* columns_in, const int32_t* rows_in,
    const double* dx_out, const double* dy_out, const double* x0_out, const double* y0_out,
    const int32_t* columns_out, const int32_t* rows_out, const float* angle,
    const double* x_pivot_out, const double* y_pivot_out, const double* x_pivot_in,
    const double* y_pivot_in, const double* x_scale, const double* y_scale,
    const int32_t* sense_out, const int32_t* mode, const void* spare, const float* stat_min,
    const float* stat_max, int32_t* status, size_t input_length, size_t output_length);

/* GEOROT with all reals in single precision. */
VELMORANKITE_API void GEOROTS(const char* input, const char* output, const float* dx_in,
                              const float* dy_in, const float* x0_in, const float* y0_in,
                              const int32_t* columns_in, const int32_t* rows_in,
                              const float* dx_out, const float* dy_out, const float* x0_out,
                              const float* y0_out, const int32_t* columns_out,
                              const int32_t* rows_out, const float* angle, const float* x_pivot_out,
                              const float* y_pivot_out, const float* x_pivot_in,
                              const float* y_pivot_in, const float* x_scale, const float* y_scale,
                              const int32_t* sense_out, const void* spare, const float* stat_min,
                              const float* stat_max, int32_t* status, size_t input_length,
                              size_t output_length);

/* Shifts the columns of a plain standard grid of 4-byte floats or signed 2-byte integers along Y by
 * the height of a profile at their X: the output at (x, y) is the input at (x + x_shift,
 * y - height(x) + y_shift), so contents move by the height and by minus the shift. Bilinear as
 * GEOROT; the header's other fields are the input's.
 *   n         points of the profile, at least 2: a cubic spline goes through them, flat beyond.
 *   profile_x, profile_y  X, strictly ascending, and heights, map units.
 *   status    as GEOROT, where a blank output is -1 too; -7 fewer than 2 points or points that do
 *             not ascend. */
VELMORANKITE_API void GEODRAPE(const char* input, const char* output, const int32_t* sense_out,
                               const double* dx_out, const double* dy_out, const double* x0_out,
                               const double* y0_out, const int32_t* columns_out,
                               const int32_t* rows_out, const int32_t* n, const double* profile_x,
                               const double* profile_y, const double* x_shift,
                               const double* y_shift, int32_t* status, size_t input_length,
                               size_t output_length);

/* The same with all reals in single precision. */
VELMORANKITE_API void GEODRAPES(const char* input, const char* output, const int32_t* sense_out,
                                const float* dx_out, const float* dy_out, const float* x0_out,
                                const float* y0_out, const int32_t* columns_out,
                                const int32_t* rows_out, const int32_t* n, const float* profile_x,
                                const float* profile_y, const float* x_shift, const float* y_shift,
                                int32_t* status, size_t input_length, size_t output_length);

/* ---- Transform ----------------------------------------------------------------------------- */

/* Filters a grid: docs/transforms.md tells the filters, their parameters and their sources. The run
 * writes a log beside the output, `<stem>_trs.log`, and with an FFT the power spectrum.
 *   InGrid       a grid of any format that can be converted; it is not changed.
 *   GridInt, GridReal  of InGrid, from GRDRDH.
 *   OutGrid      the standard grid to write, on the lattice of InGrid.
 *   ReUse        above 0: the padded grid and its spectrum are kept for later runs, under names
 *                that begin with ReUseBase, and those of earlier runs are used; 0: files of these
 *                names are deleted at the end; below 0: those of the run stay, and none is used.
 *   Filter       index, 100 to 212.
 *   PadWidth     above 0: the padded grid has 3 x PadWidth + 1 cells more on each side.
 *   FilterWidth  a convolution operator has 2 x FilterWidth - 1 points across.
 *   Detrend      units digit 0: the plane is taken off; 1: and put back; 2: nothing is taken off,
 *                the margin fades to the mean. Tens digit: the scope of GRID_DETREND_PLANE.
 *   FftMode      0: convolution; 1: FFT in memory.
 *   HiCut, LoCut cutoffs in eighths of a cycle per cell, above 0 and up to 1.
 *   Azimuth      degrees, meaning by filter.
 *   IntPar, RealPar  3 integers and 8 reals.
 *   OutMin, OutMax   out: range of the output; where none was made OutMax is 1 and OutMin as it
 *                was. Both are 0 for the hole filter.
 *   Status       0, or the cells filled by the hole filter; negative: docs/c-interface.md. */
VELMORANKITE_API void TRSD(const char* InGrid, const int32_t* GridInt, const double* GridReal,
                           const char* OutGrid, const int32_t* ReUse, const char* ReUseBase,
                           const int32_t* Filter, const int32_t* PadWidth,
                           const int32_t* FilterWidth, const int32_t* Detrend,
                           const int32_t* FftMode, const float* HiCut, const float* LoCut,
                           const float* Azimuth, const int32_t* IntPar, const float* RealPar,
                           float* OutMin, float* OutMax, int32_t* Status, size_t InGrid_length,
                           size_t OutGrid_length, size_t ReUseBase_length);

/* The same with 22 reals in single precision. */
VELMORANKITE_API void TRS(const char* InGrid, const int32_t* GridInt, float* GridReal,
                          const char* OutGrid, const int32_t* ReUse, const char* ReUseBase,
                          const int32_t* Filter, const int32_t* PadWidth,
                          const int32_t* FilterWidth, const int32_t* Detrend,
                          const int32_t* FftMode, const float* HiCut, const float* LoCut,
                          const float* Azimuth, const int32_t* IntPar, const float* RealPar,
                          float* OutMin, float* OutMax, int32_t* Status, size_t InGrid_length,
                          size_t OutGrid_length, size_t ReUseBase_length);

/* Transforms complex numbers along each dimension in place, without normalisation: the radix-2
 * transform of Danielson and Lanczos (1942) with twiddle factors by recurrence.
 *   data        2 x the product of the dimensions words, real part first, the first dimension
 *               fastest.
 *   dimensions  dimension_count powers of two.
 *   sign        1: forward, the exponent is +2 pi i k x / n; -1: inverse.
 * Returns 0; -1 for a dimension that is no power of two, -2 for too many words, -3 for another
 * sign; the data are then as they were. */
VELMORANKITE_API int32_t FOURN(float* data, const int32_t* dimension_count,
                               const int32_t* dimensions, const int32_t* sign);

/* Designs the operator of a convolution filter.
 *   Filter to Par3  as the parameter set of a run holds them: distances in cells, Par1 the order of
 *              the vertical derivative for 106, 107 and 109, Par3 the sine of the strike azimuth
 *              for 115. The remanence lies along the field.
 *   direction  degrees from the Y axis towards the X axis, of a horizontal derivative.
 *   columns, rows  points each way, the same odd number n.
 *   weights    out: for an index below 200 the quarter plane, (n - 1) / 2 + 1 points each way from
 *              the centre; else n x n.
 *   Status     0; 1: a filter without a response, all weights 1; -3001 no symmetric filter, -3002
 *              a filter without an operator, -3003 columns and rows are not the same odd number. */
VELMORANKITE_API void CALC_FILTER_COEFFICIENTS(
    const int32_t* Filter, const int32_t* Opt1, const int32_t* Opt2, const float* LoCut,
    const float* HiCut, const float* Par1, const float* Par2, const float* Par3,
    const double* CellX, const double* CellY, const double* direction, const int32_t* columns,
    const int32_t* rows, float* weights, int32_t* Status);

/* ---- Values at points ---------------------------------------------------------------------- */

/* Values of a grid at points, from the three by three cells round each, as far as they have data:
 * docs/utilities.md tells how.
 *   memory_flag  not 0: the grid lies in `cells`; 0: it is the file `name`, a standard grid of
 *                cells as the routine takes them.
 *   grid_ints, grid_reals  format code, data offset, element code and storage sense are read, and
 *                the counts, limits and cell sizes of the out words.
 *   cells        rows of out_x_count cells, the lowest Y first, for storage sense -2 the highest;
 *                NULL if memory_flag is 0.
 *   point_count  of x, y and values. A negative count means its absolute value, and values by
 *                logarithms.
 *   values       out: one a point; the dummy for a point outside the grid, by an empty base cell,
 *                or whose cells the file does not give. From a file a point that needs the last
 *                three cells together has none.
 *   status       0; -1 for a blank name with memory_flag 0, a format code of 4, 5 or 6, or a count
 *                of cells below 1: all values are then the dummy. */
VELMORANKITE_API void GRDVALD(const int32_t* memory_flag, const char* name,
                              const int32_t* grid_ints, const double* grid_reals,
                              const float* cells, const int32_t* point_count, const double* x,
                              const double* y, float* values, int32_t* status, size_t name_length);

/* The same with 22 reals in single precision. */
VELMORANKITE_API void GRDVALDS(const int32_t* memory_flag, const char* name,
                               const int32_t* grid_ints, const float* grid_reals,
                               const float* cells, const int32_t* point_count, const double* x,
                               const double* y, float* values, int32_t* status, size_t name_length);

/* The same with reals and points in single precision, in which they are placed among the cells. */
VELMORANKITE_API void GRDVAL(const int32_t* memory_flag, const char* name, const int32_t* grid_ints,
                             const float* grid_reals, const float* cells,
                             const int32_t* point_count, const float* x, const float* y,
                             float* values, int32_t* status, size_t name_length);

/* The same for cells of 16-bit integers, blank at or below -32767. Values are cut to whole numbers
 * from -32767, which also stands for no value, to 32767. */
VELMORANKITE_API void GRDVALI2(const int32_t* memory_flag, const char* name,
                               const int32_t* grid_ints, const double* grid_reals,
                               const int16_t* cells, const int32_t* point_count, const double* x,
                               const double* y, int16_t* values, int32_t* status,
                               size_t name_length);

/* The same for a grid in memory whose lowest row comes first whatever the storage sense, on the
 * lattice of x_count, x_min and their neighbours. The base cell is the last one at or below the
 * point.
 *   status  0; -1 for a count of cells below 1. */
VELMORANKITE_API void GEOVAL(const float* cells, const int32_t* grid_ints, const double* grid_reals,
                             const int32_t* point_count, const double* x, const double* y,
                             float* values, int32_t* status);

/* The same with 22 reals in single precision. */
VELMORANKITE_API void GEOVALS(const float* cells, const int32_t* grid_ints, const float* grid_reals,
                              const int32_t* point_count, const double* x, const double* y,
                              float* values, int32_t* status);

/* Bicubic values at points, by the Catmull-Rom cubic in single precision. A row of the four by four
 * cells that lacks some takes the values of their neighbours in it.
 *   cells          rows of x_count cells, the lowest Y first, for storage sense -2 the highest: as
 *                  many as the greater of y_count and `rows`.
 *   grid_ints, grid_reals  storage sense, counts, limits and cell sizes are read.
 *   columns, rows  usually x_count and y_count: cells of a neighbourhood from these on are empty.
 *   point_count    of x, y and values; below 1 nothing is done.
 *   values         out: one a point; the dummy for a point outside the grid or whose base cell, the
 *                  last one at or below it, is empty.
 *   status         -1 for an x_count or y_count below 1; not touched on success. */
VELMORANKITE_API void BICUBIC_GRID_INTERPOLATION(const float* cells, const int32_t* grid_ints,
                                                 const double* grid_reals, const int32_t* columns,
                                                 const int32_t* rows, const int32_t* point_count,
                                                 const double* x, const double* y, float* values,
                                                 int32_t* status);

/* The same in double precision, with x_count and y_count for columns and rows. */
VELMORANKITE_API void BICUBIC_GRID_INTERPOLATIOND(const float* cells, const int32_t* grid_ints,
                                                  const double* grid_reals,
                                                  const int32_t* point_count, const double* x,
                                                  const double* y, float* values, int32_t* status);

/* BICUBIC_GRID_INTERPOLATION with 22 reals and points in single precision. */
VELMORANKITE_API void BICUBIC_GRID_INTERPOLATIONS(const float* cells, const int32_t* grid_ints,
                                                  const float* grid_reals, const int32_t* columns,
                                                  const int32_t* rows, const int32_t* point_count,
                                                  const float* x, const float* y, float* values,
                                                  int32_t* status);

/* The same in double precision, from memory or from a file, on the lattice of the out words. The
 * base cell is the last one at least half a cell below the point.
 *   memory_flag    not 0: the grid lies in `cells`; 0: it is the file `name`.
 *   name           standard grid of 4-byte floats; must not be blank in memory either.
 *   columns, rows  in memory also the length of a row and the number of rows.
 *   cells          NULL if memory_flag is 0.
 *   status         -1 for a blank name or a count of cells below 1; not touched on success. */
VELMORANKITE_API void BICUBIC_GEO_INTERPOLATION(const int32_t* memory_flag, const char* name,
                                                const int32_t* grid_ints, const double* grid_reals,
                                                const int32_t* columns, const int32_t* rows,
                                                const float* cells, const int32_t* point_count,
                                                const double* x, const double* y, float* values,
                                                int32_t* status, size_t name_length);

/* The same with 22 reals and points in single precision. */
VELMORANKITE_API void BICUBIC_GEO_INTERPOLATIONS(const int32_t* memory_flag, const char* name,
                                                 const int32_t* grid_ints, const float* grid_reals,
                                                 const int32_t* columns, const int32_t* rows,
                                                 const float* cells, const int32_t* point_count,
                                                 const float* x, const float* y, float* values,
                                                 int32_t* status, size_t name_length);

/* ---- Merge --------------------------------------------------------------------------------- */

/* Reads the stitch line of a DXF file.
 *   mode              0: counts only, x and y may be NULL; above 0: stores too.
 *   minimum_distance  a vertex nearer than this to the one before it in the file is dropped.
 *   vertex_count      out.
 *   x, y              out: at least as many as a call with mode 0 counts.
 *   status            0; -1 for fewer than 2 vertices or a read that fails. */
VELMORANKITE_API void RDSTITCHDXF(const int32_t* mode, const char* path,
                                  const double* minimum_distance, int32_t* vertex_count, double* x,
                                  double* y, int32_t* status, size_t path_length);

/* Joins two standard grids along a line and writes the merged grid and `<stem>_mismatch.dat`, the
 * stem being that of `report_name`.
 *   correction_distance  above 0: the drifting part of the mismatch is removed too.
 *   adjusted_grid        0: grid 1 moves onto grid 2, without a correction only within the working
 *                        window around the line; 1: grid 2 onto grid 1.
 *   blend_width, band_margin  map units.
 *   vertex_count, x, y   the line, grid 1 on its right; with room for one vertex more, which is
 *                        appended if the line closes on itself.
 *   out_x_min to out_y_count  the output's lattice; the two maxima only clip the working window.
 *   status               0; -1 if the grids cannot be joined along this line; -9001, with nothing
 *                        written, also if a result would replace a grid or another result. */
VELMORANKITE_API void GRIDSTITCH(
    const char* report_name, const char* grid_1, const int32_t* grid_1_ints,
    const double* grid_1_reals, const char* grid_2, const int32_t* grid_2_ints,
    const double* grid_2_reals, const float* correction_distance, const int32_t* adjusted_grid,
    const float* blend_width, const float* band_margin, int32_t* vertex_count, double* x, double* y,
    const char* output, const double* out_x_min, const double* out_x_max, const double* out_x_cell,
    const int32_t* out_x_count, const double* out_y_min, const double* out_y_max,
    const double* out_y_cell, const int32_t* out_y_count, int32_t* status,
    size_t report_name_length, size_t grid_1_length, size_t grid_2_length, size_t output_length);

#ifdef __cplusplus
}
#endif
#endif
