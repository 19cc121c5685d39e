/* Stands in for the header of Microsoft's C library, which no Debian package has. The public
 * headers only use wchar_t, which the compiler's own header defines. */
#include <stddef.h>
