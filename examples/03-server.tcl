# Answers a browser while a timer ticks: an HTTP server on the loopback address, in plain Tcl. In
# the console it runs until somebody asks for /stop, and the window lives on meanwhile.
#
#     source examples/03-server.tcl                   typed in the console of the window
#     morvalen --batch examples/03-server.tcl 8015    without a window; 0 takes any free port

namespace eval ::server {
    variable ticks 0

    proc tick {} {
        incr ::server::ticks
        variable timer [after 100 [namespace code tick]]
    }

    proc accept {client address port} {
        fconfigure $client -blocking 0 -buffering full -translation {auto crlf} -encoding utf-8
        fileevent $client readable [namespace code [list receive $client]]
    }

    # The first line says what is wanted; an empty one ends the request.
    proc receive {client} {
        variable wanted
        if {[catch {gets $client line} count]} {
            forget $client
        } elseif {$count < 0} {
            if {[eof $client] || [chan pending input $client] > 8000} { forget $client }
        } elseif {$count > 0 && ![info exists wanted($client)]} {
            set wanted($client) [lindex [split $line] 1]
        } elseif {$count == 0} {
            catch {answer $client [expr {[info exists wanted($client)] ? $wanted($client) : ""}]}
            forget $client
        }
    }

    proc answer {client path} {
        switch -- $path {
            /       { set reply [list "200 OK" "$::server::ticks ticks, open designs: [designs list]"] }
            /stop   { set reply [list "200 OK" "Good bye."]; after 0 [namespace code stop] }
            default { set reply [list "404 Not Found" "There is nothing at \"$path\"."] }
        }
        lassign $reply status text
        puts $client "HTTP/1.0 $status\nContent-Type: text/plain; charset=utf-8\n\n$text"
    }

    proc forget {client} { array unset ::server::wanted $client; close $client }

    proc stop {} {
        after cancel $::server::timer
        close $::server::socket
        puts "The server has stopped."
        set ::server::stopped 1
    }

    variable port [expr {[info exists argv] && [llength $argv] ? [lindex $argv 0] : 8015}]
    variable socket [socket -server [namespace code accept] -myaddr 127.0.0.1 $port]
    tick
    puts "Serving http://127.0.0.1:[lindex [fconfigure $socket -sockname] 2]/"
    if {[info exists argv0]} { flush stdout; vwait ::server::stopped }
}
