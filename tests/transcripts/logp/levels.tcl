source [file join [file dirname [info script]] .. show.tcl]

show logp
show logp {the type is never left out}
show logp {something to look at} warning
show logp {something that is wrong} error
show logp {a message} debug
