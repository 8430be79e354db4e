source [file join [file dirname [info script]] .. show.tcl]

show build
designs new plain
show build
designs close_all
file copy [file join [file dirname [info script]] .. component.xml] .
write words.txt "some words"
designs add component.xml
show build
show build get run_state
show build get target_path
show build steps list
show_sorted build macros list
show build macros get COPY
show build macros get NONE
show build macros get
show build run
show build get run_state
show file exists build/Debug/copy.txt
show files list generated
show build run TRUE
show build run all
show build refresh
show build get run_state
show build set target_path {build/some where}
show build get target_path
show build run
show file exists {build/some where/copy.txt}
show design clean
show file exists {build/some where/copy.txt}
builds set_active Release
show build run
show build get run_state
show build set target_path
show build run true false
