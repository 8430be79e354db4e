# What tclsh has to load before it can read a component.
package require tdom
