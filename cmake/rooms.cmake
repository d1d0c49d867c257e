# The lists of folders that the build and the layering test share.

# The rooms under src/, from the lowest to the highest. A file includes its own room and lower ones.
# synth, recorder and tutorial stand side by side: none includes another.
set(MELVANE_ROOMS platform core midi files ui "synth|recorder|tutorial" shell app)

# A file whose name matches one of these may include Qt and belongs to melvane_windows; every other file under
# src/ belongs to melvane_engine, which has no Qt on its include path.
set(MELVANE_WINDOW_FILES "_window$" "_view$" "_panel$" "_toolbar$" "_dialog$" "^qt_")

# Folders of programs and tests beside src/: they may include every room and are included by none.
set(MELVANE_OUTER_FOLDERS tools tests bench)
