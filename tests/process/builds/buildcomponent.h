#pragma once

#include <QByteArray>

// A step of a build configuration, as a component file has it.
inline QByteArray step(const QByteArray &name, const QByteArray &command,
                       const QByteArray &input = {}, const QByteArray &output = {})
{
    return "<mv:step name=\"" + name + "\"><mv:command>" + command + "</mv:command>"
        + (input.isEmpty() ? QByteArray() : "<mv:input>" + input + "</mv:input>")
        + (output.isEmpty() ? QByteArray() : "<mv:output>" + output + "</mv:output>")
        + "</mv:step>";
}

// A component "soft" with a build configuration "Main" of these steps, and more configurations.
inline QByteArray buildComponent(const QByteArray &steps, const QByteArray &more = {})
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:component xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>v</ipxact:vendor>
  <ipxact:library>l</ipxact:library>
  <ipxact:name>soft</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
  <ipxact:vendorExtensions>
    <mv:design xmlns:mv="urn:morvalen:host:1">
      <mv:buildConfigurations>
        <mv:buildConfiguration name="Main">)"
        + steps + "</mv:buildConfiguration>" + more + R"(
      </mv:buildConfigurations>
    </mv:design>
  </ipxact:vendorExtensions>
</ipxact:component>
)";
}
