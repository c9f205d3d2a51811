// SPDX-License-Identifier: BSD-3-Clause
// The files that scripts opened or created and have not closed: the only state that outlives a
// call.
#pragma once

namespace Ovard::gridio {

// Adds a file identifier; one already held stays as it is. Called after the library opened the
// file. Should memory run out, the file is closed again before std::bad_alloc leaves, so that it is
// never lost.
void registerOpenFile(int ncid);

// Removes a file identifier; one not held is no error. Called after the library closed the file.
void unregisterOpenFile(int ncid);

bool isRegisteredFile(int ncid);

// The unload handler: warns once with closingFileHandle when any file is held that this process
// opened, then closes each of those with nc_close, in ascending order of identifier, whatever the
// library answers. Raises nothing.
void closeRegisteredFiles();

} // namespace Ovard::gridio
