// Saving a clip two semitones higher as a user clip, with korvel/plx.hpp and the kit. It calls the
// functions of the library by name, so this serves a host that is linked to the library and one that
// links krt_plx_loaded and loads it.
#pragma once

// For the first clip that has a text in its name. The words are the folder of system clips, the folder
// of user clips, that text, and the new clip's name, all in UTF-8. Prints the new clip's ID; false when
// nothing was saved.
bool singHigher(char* const words[4]);
