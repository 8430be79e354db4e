source [file join [file dirname [info script]] .. show.tcl]

designs new uart
cd [design get wfp]
show folders remove_all
foreach name {a b c d} {
    write $name/inside.txt $name
    folders add $name
}
show folders delete a
show file exists a
show folders delete a
file delete -force b
show folders delete_all
show folders list
show lsort [glob -types d *]
