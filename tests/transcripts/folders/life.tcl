source [file join [file dirname [info script]] .. show.tcl]

show folders list
designs new uart {Hardware Design}
show folders
show folders list
show folders add docs/figures
show folders add docs/figures
show folders add {}
show folders contains docs/figures
show folders contains docs/none
show folders category docs/figures
show folders category docs/none
show folders set_active docs/figures
show folders set_active docs/none
show folders remove docs/figures
show folders remove docs/figures
show folders remove_all now
show folders remove_all
show folders remove_all
show folders delete_all
show folders list
