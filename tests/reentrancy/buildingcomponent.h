#pragma once

#include <QByteArray>

// A component of that name with a build configuration of one step, which makes nothing.
inline QByteArray buildingComponent(const QByteArray &name, const QByteArray &command)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:component xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>v</ipxact:vendor>
  <ipxact:library>l</ipxact:library>
  <ipxact:name>)"
        + name + R"(</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
  <ipxact:vendorExtensions>
    <mv:design xmlns:mv="urn:morvalen:host:1">
      <mv:buildConfigurations>
        <mv:buildConfiguration name="Main">
          <mv:step name="step"><mv:command>)"
        + command + R"(</mv:command></mv:step>
        </mv:buildConfiguration>
      </mv:buildConfigurations>
    </mv:design>
  </ipxact:vendorExtensions>
</ipxact:component>
)";
}
