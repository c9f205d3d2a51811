// SPDX-License-Identifier: BSD-3-Clause
// The files that scripts opened or created and have not closed: the only state that outlives a
// call.
#pragma once

namespace Ovard::gridio {

// Adds a file identifier; adding it twice has no effect. Called after the library opened the file.
// If memory runs out, the file is closed before std::bad_alloc is thrown, so that it is never lost.
void registerOpenFile(int ncid);

// Removes a file identifier; an unknown one is not an error. Called after the library closed the
// file.
void unregisterOpenFile(int ncid);

bool isRegisteredFile(int ncid);

// The unload handler: warns once with closingFileHandle if this process has opened a file that is
// still registered, then closes each such file with nc_close, in ascending order of identifiers,
// ignoring failures. Raises nothing.
void closeRegisteredFiles();

} // namespace Ovard::gridio
