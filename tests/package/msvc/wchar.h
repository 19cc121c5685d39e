/* Stands in for the header of Microsoft's C library, which no Debian package has. Of it the public
 * headers use wchar_t alone, which the compiler's own header defines. */
#include <stddef.h>
