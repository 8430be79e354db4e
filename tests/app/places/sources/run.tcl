source [file join [file dirname [info script]] library.tcl]

outer
