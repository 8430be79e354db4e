source [file join [file dirname [info script]] .. show.tcl]

show log
show log {a message of the default type}
show log {a message} info
show log {something to look at} warning
show log {something that is wrong} error
show log {a message} WARNING
