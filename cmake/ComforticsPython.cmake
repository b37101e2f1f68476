# SPDX-License-Identifier: GPL-3.0-or-later
# The Python that has NumPy need not be the first on the path: the system's own is asked first.
if(NOT DEFINED Python3_EXECUTABLE)
  foreach(candidate /usr/bin/python3 python3)
    execute_process(COMMAND ${candidate} -c "import numpy, sys; print(sys.executable)" OUTPUT_VARIABLE found
                    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE status)
    if(status EQUAL 0)
      set(Python3_EXECUTABLE ${found} CACHE FILEPATH "The Python that the package comfortics is built for")
      break()
    endif()
  endforeach()
endif()
