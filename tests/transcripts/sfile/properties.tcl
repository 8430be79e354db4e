source [file join [file dirname [info script]] .. show.tcl]

designs new uart
files add rtl/uart.v
files set_active rtl/uart.v
show sfile property exists reviewed
show sfile property get reviewed
show sfile property set reviewed bool TRUE
show sfile property exists reviewed
show sfile property get reviewed
show sfile property set lines int many
show sfile property set lines int 42 maybe
show sfile property set lines int 42 true
show sfile property set lines int 43
show sfile property get lines
show sfile property set "odd \"name\" %1 \u20ac" string "value\n%2"
show sfile property set {} int 1
show sfile property set lines int
show sfile property remove lines
show sfile property remove lines
set id [lindex [designs list] 0]
set component [file join [design get wfp] component.xml]
show design save
show designs close $id
show designs add $component
show files set_active rtl/uart.v
show sfile property get reviewed
show sfile property get "odd \"name\" %1 \u20ac"
