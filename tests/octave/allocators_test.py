# SPDX-License-Identifier: BSD-3-Clause
"""Results are released as they were allocated: in a process whose operator delete releases what the same form of operator
new allocated and nothing else, and by polymorphic allocators where the interpreter's arrays have them."""
import os
import pathlib
import unittest
import unittest.mock

import interpreter

SUPPORT = pathlib.Path(__file__).resolve().parent / "support"

# Every class, empty, short and large: from 32 MiB on a result is allocated in another way.
READ_EVERYTHING = """
[ncid, path] = new_file ("netcdf4");
lengths = [0, 3, 2 ^ 16, 33 * 2 ^ 20];
for k = 1:numel (lengths)
  dims(k) = gridio ("defDim", ncid, sprintf ("x%d", k), lengths(k));
  v(k) = gridio ("defVar", ncid, sprintf ("v%d", k), gridio ("parameter", "NC_BYTE"), dims(k));
end
gridio ("endDef", ncid);
for k = 1:numel (v)
  for type = {"Schar", "Short", "Int", "Float", "Double"}(1:end - 4 * (k == 4))
    values = gridio (["getVar" type{1}], ncid, v(k));
    values(end + 1) = 1;
    values = [];
  end
end
gridio ("close", ncid);
text = repmat ("abc", 1, 12 * 2 ^ 20);
ncid = gridio ("create", path, "clobber");
gridio ("putAttText", ncid, gridio ("parameter", "NC_GLOBAL"), "title", text);
assert (isequal (gridio ("getAttText", ncid, gridio ("parameter", "NC_GLOBAL"), "title"), text));
gridio ("close", ncid);
clear values text
"""


def session(test, code):
    return interpreter.session(test, code, folders=(SUPPORT, os.environ["SUPPORT_OCT_DIR"], interpreter.oct_folder()))


class Results(unittest.TestCase):
    def test_are_released_by_the_delete_that_belongs_to_their_new(self):
        with unittest.mock.patch.dict(os.environ, LD_PRELOAD=os.environ["STRICT_NEW"]):
            self.assertEqual(session(self, READ_EVERYTHING), "")

    def test_are_allocated_by_the_resource_that_releases_them(self):
        shown = session(self, "counted_storage ();" + READ_EVERYTHING
                        + "[is_used, count, mismatches] = counted_storage ();\nprintf (\"%d\", [is_used, count > 20, mismatches]);")
        self.assertIn(shown, ("110", "000"))  # with and without polymorphic allocators


if __name__ == "__main__":
    unittest.main()
