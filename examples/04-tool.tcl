# Runs a tool that takes its time, and shows what it writes as soon as it does. The console stays
# free: lines appear in front of the prompt while one types.
#
#     source examples/04-tool.tcl                                 typed in the console
#     tool::start {make -C sim} {apply {status {puts "make: $status"}}}
#     morvalen --batch examples/04-tool.tcl make -C sim           without a window

namespace eval tool {
    # Starts the tool; with its end the command done gets one more word, its exit status, or
    # "killed" and the like.
    proc start {words done} {
        set pipe [open "|[list {*}$words 2>@1]"]
        fconfigure $pipe -blocking 0 -buffering line
        fileevent $pipe readable [namespace code [list receive $pipe [clock milliseconds] $done]]
        return $pipe
    }

    proc receive {pipe begin done} {
        while {[gets $pipe line] >= 0} {
            puts [format {%5.1f s  %s} [expr {([clock milliseconds] - $begin) / 1000.0}] $line]
        }
        if {[eof $pipe]} {
            # Only a blocking close waits for the tool and tells how it ended.
            fconfigure $pipe -blocking 1
            set failed [catch {close $pipe} - options]
            {*}$done [expr {$failed ? [outcome [dict get $options -errorcode]] : 0}]
        }
    }

    proc outcome {code} {
        if {[lindex $code 0] eq "CHILDSTATUS"} { return [lindex $code 2] }
        return "killed ([lindex $code end])"
    }
}

if {[info exists argv0]} {
    set words $argv
    if {![llength $words]} {
        set words {sh -c {for i in 1 2 3; do echo step $i of 3; sleep 0.5; done; exit 3}}
    }
    if {[catch {tool::start $words {set ::status}} text]} {
        puts stderr $text
        exit 1
    }
    vwait status
    puts "It ended: $status"
    exit [expr {[string is integer $status] ? $status : 1}]
}
