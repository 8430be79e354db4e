source [file join [file dirname [info script]] .. show.tcl]

show properties list
designs new uart
show properties
show properties list
show properties set WIDTH int 8
show properties set WIDTH int 16
show properties set NAME string "odd \"value\" %1 \u20ac" true
show properties set DEPTH int deep
show properties set DEPTH int 4 maybe
show properties set DEPTH
show properties add EMPTY
show properties add EMPTY
show properties list
show properties contains WIDTH
show properties contains width
show properties category WIDTH
show properties category width
show properties set_active WIDTH
show properties set_active width
show properties remove EMPTY
show properties remove EMPTY
show properties remove_all now
show properties remove_all
show properties remove_all
