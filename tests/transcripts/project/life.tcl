source [file join [file dirname [info script]] .. show.tcl]

show project
show project projects_path
show project name
show project path
show project close
show project save
show project new
show project path
show project save
show project save serial.prj
show project name
show project path
show project save
show project close
show project open serial.prj
show project name
show project open nowhere.prj
show project name
show project save a b
