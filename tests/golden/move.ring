put from/new
put a/taken
put to/taken
put b/dangling
link nowhere to/dangling
put c/loop
link loop to/loop
move from to
= returns 0
= 6 move_file:/data/vendor/camera/from/new:/data/vendor/camera/to/new
move a to
= returns 0
= 6 move_file:/data/vendor/camera/a/taken:/data/vendor/camera/to/taken
move b to
= returns 0
= 6 move_file:/data/vendor/camera/b/dangling:/data/vendor/camera/to/dangling
move c to
= returns 0
= 6 move_file:/data/vendor/camera/c/loop:/data/vendor/camera/to/loop
put e/.hidden
move e to
= returns 0
= 6 move_file:/data/vendor/camera/e/.hidden:/data/vendor/camera/to/.hidden
put f/..two
move f to
= returns 0
= 6 move_file:/data/vendor/camera/f/..two:/data/vendor/camera/to/..two
put d/one
put d/taken
put d/two
(move d to)
files
= a/
= a/taken
= c/
= c/loop
= d/
= d/taken
= to/
= to/..two has f/..two
= to/.hidden has e/.hidden
= to/dangling has b/dangling
= to/loop
= to/new has from/new
= to/one has d/one
= to/taken
= to/two has d/two
move c no-folder
= returns 0
= 6 move_file:/data/vendor/camera/c/loop:/data/vendor/camera/no-folder/loop
= 6 Failed to move file loop
put plain
move c plain
= returns 0
= 6 move_file:/data/vendor/camera/c/loop:/data/vendor/camera/plain/loop
= 6 Failed to move file loop
move no-folder to
= returns 1
= 6 Failed to open source directory
