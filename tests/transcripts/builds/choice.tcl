source [file join [file dirname [info script]] .. show.tcl]

show builds list
designs new plain
show builds
show builds list
show builds set_active Debug
designs close_all
file copy [file join [file dirname [info script]] .. component.xml] .
designs add component.xml
show builds list
show overview
show build get target_path
show builds set_active {odd "name" %1}
show build get target_path
show builds set_active Release
show build get target_path
show builds set_active
