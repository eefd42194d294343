// The network tests' back end for tests, built into this program too: the
// General page is driven against it.
#include "network/TestNetConfig.cpp"
