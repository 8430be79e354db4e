source [file join [file dirname [info script]] .. show.tcl]

designs new uart
set component [file join [design get wfp] component.xml]
design set description "A serial port"
designs close_all
show designs add $component
show design get description
show designs add $component
show designs add nowhere.xml
write text.xml "no component at all"
show designs add text.xml
show designs add
show designs list
