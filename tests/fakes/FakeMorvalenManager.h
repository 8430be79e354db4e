#pragma once

#include <MorvalenCore/MorvalenManager.h>

// A program whose session has a fixed port.
class FakeMorvalenManager : public MorvalenCore::MorvalenManager
{
public:
    int getUdpSocketForSession() override { return port; }

    int port = 4711;
};
