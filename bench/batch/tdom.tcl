# The same with tdom, by somebody who knows XML: the document is read, changed and written whole, to
# a temporary file that takes the old one's place.
package require tdom
load [lindex $argv 0] Fsync
set names {x http://www.accellera.org/XMLSchema/IPXACT/1685-2014 mv urn:morvalen:host:1}

proc change {component} {
    global names
    set stream [open $component]
    fconfigure $stream -encoding utf-8
    set document [dom parse -keepEmpties [read $stream]]
    close $stream
    set root [$document documentElement]
    set folder [file dirname $component]
    foreach node [$root selectNodes -namespaces $names x:fileSets/x:fileSet/x:file/x:name/text()] {
        set file [file join $folder [$node nodeValue]]
        if {![file exists $file]} { error "$file is missing" }
    }
    set value {x:parameters/x:parameter[x:name="WIDTH"]/x:value/text()}
    [$root selectNodes -namespaces $names $value] nodeValue 64
    set author x:vendorExtensions/mv:design/mv:author/text()
    [$root selectNodes -namespaces $names $author] nodeValue "The release script"
    set stream [open $component.new w]
    fconfigure $stream -encoding utf-8
    puts $stream {<?xml version="1.0" encoding="UTF-8"?>}
    puts -nonewline $stream [$root asXML -indent none]
    close $stream
    fsync $component.new
    file rename -force $component.new $component
    fsync $folder
    $document delete
}

foreach component [lrange $argv 1 end] { change $component }
