#include "rows.h"

#include "sections/ip.h"

#include <cstring>

namespace {

constexpr const char *ipv4Step = "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip";
constexpr const char *ipv6Step = "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6";

/// An IPv4 interface with all of its values set.
Ipv4Interface someIpv4() {
    Ipv4Interface interface = {};
    interface.enabled = 1;
    interface.address = {{198, 51, 100, 33}};
    interface.mask = {{255, 255, 255, 192}};
    interface.gateway = {{198, 51, 100, 62}};
    interface.dhcpMode = 1;
    return interface;
}

/// An IPv6 interface with all of its values set.
Ipv6Interface someIpv6() {
    Ipv6Interface interface = {};
    interface.enabled = 1;
    interface.autoconfiguration = 1;
    interface.dhcpMode = 2;
    interface.rapidCommit = 1;
    interface.linkLocal = {{0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x33}};
    interface.linkLocalPrefixLength = 64;
    interface.global = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x21}};
    interface.globalPrefixLength = 48;
    interface.gateway = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x01}};
    return interface;
}

/// The same interface in both images, then a change of the current one.
auto ipv4Changed(void (*change)(Ipv4Interface &)) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.ipv4 = defaults.ipv4 = someIpv4();
        change(current.ipv4);
    };
}
auto ipv6Changed(void (*change)(Ipv6Interface &)) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.ipv6 = defaults.ipv6 = someIpv6();
        change(current.ipv6);
    };
}

void composeIp(ConfigImage &current, ConfigImage &defaults) {
    current.ipv4 = someIpv4();
    current.ipv6 = someIpv6();
    defaults.ipv4.enabled = 0;
    defaults.ipv4.address = {{192, 0, 2, 1}};
    defaults.ipv4.mask = {{255, 255, 255, 0}};
    defaults.ipv6.linkLocal = current.ipv6.linkLocal;
    defaults.ipv6.linkLocalPrefixLength = 64;
    defaults.ipv6.dhcpMode = 1;
}

std::string ipText(Mode mode) {
    resetAll();
    composeIp(*gSysConfig, *gDefConfig);
    callStep(mode, ipv4Step);
    callStep(mode, ipv6Step);
    return Temp_Configuration;
}

} // namespace

ROWS(IpAddressing,
     ({
         {"IPv4 zero", Mode::full, ipv4Step, [](auto &, auto &) {},
          "no ip address dhcp\nip address 0.0.0.0 0.0.0.0 0.0.0.0\nno ip enable\n"},
         {"IPv4 with DHCP keeps its address line", Mode::full, ipv4Step,
          [](auto &current, auto &) { current.ipv4 = someIpv4(); },
          "ip address dhcp\nip address 198.51.100.33 255.255.255.192 198.51.100.62\nip enable\n"},
         {"IPv4 DHCP mode 2 has no line", Mode::full, ipv4Step,
          [](auto &current, auto &) { current.ipv4.dhcpMode = 2; },
          "ip address 0.0.0.0 0.0.0.0 0.0.0.0\nno ip enable\n"},
         {"IPv4 DHCP mode 255 has no line", Mode::full, ipv4Step,
          [](auto &current, auto &) { current.ipv4.dhcpMode = 255; },
          "ip address 0.0.0.0 0.0.0.0 0.0.0.0\nno ip enable\n"},
         {"IPv4 enabled by any value", Mode::full, ipv4Step, [](auto &current, auto &) { current.ipv4.enabled = 128; },
          "no ip address dhcp\nip address 0.0.0.0 0.0.0.0 0.0.0.0\nip enable\n"},
         {"IPv4 default is not read", Mode::full, ipv4Step, [](auto &, auto &defaults) { defaults.ipv4 = someIpv4(); },
          "no ip address dhcp\nip address 0.0.0.0 0.0.0.0 0.0.0.0\nno ip enable\n"},
         {"IPv4 octets and places", Mode::full, ipv4Step,
          [](auto &current, auto &) {
              u8 octets[20];
              for (u8 i = 0; i < 20; ++i) octets[i] = static_cast<u8>(200 + i);
              octets[19] = 1;
              std::memcpy(reinterpret_cast<u8 *>(&current) + 376, octets, sizeof octets);
          },
          "ip address dhcp\nip address 201.202.203.204 205.206.207.208 209.210.211.212\nip enable\n"},

         {"IPv4 equal", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &) {}), ""},
         {"IPv4 DHCP off", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) { ip.dhcpMode = 0; }),
          "no ip address dhcp\n"},
         {"IPv4 DHCP mode 2 is off", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) { ip.dhcpMode = 2; }),
          "no ip address dhcp\n"},
         {"IPv4 DHCP on", Mode::delta, ipv4Step, [](auto &current, auto &) { current.ipv4.dhcpMode = 1; },
          "ip address dhcp\n"},
         {"IPv4 DHCP mode 2 against 0", Mode::delta, ipv4Step, [](auto &current, auto &) { current.ipv4.dhcpMode = 2; },
          "no ip address dhcp\n"},
         {"IPv4 address first octet", Mode::delta, ipv4Step,
          ipv4Changed([](Ipv4Interface &ip) { ip.address.octets[0] = 1; }),
          "ip address 1.51.100.33 255.255.255.192 198.51.100.62\n"},
         {"IPv4 address last octet", Mode::delta, ipv4Step,
          ipv4Changed([](Ipv4Interface &ip) { ip.address.octets[3] = 1; }),
          "ip address 198.51.100.1 255.255.255.192 198.51.100.62\n"},
         {"IPv4 mask", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) { ip.mask.octets[3] = 0; }),
          "ip address 198.51.100.33 255.255.255.0 198.51.100.62\n"},
         {"IPv4 gateway first octet", Mode::delta, ipv4Step,
          ipv4Changed([](Ipv4Interface &ip) { ip.gateway.octets[0] = 9; }),
          "ip address 198.51.100.33 255.255.255.192 9.51.100.62\n"},
         {"IPv4 gateway last octet", Mode::delta, ipv4Step,
          ipv4Changed([](Ipv4Interface &ip) { ip.gateway.octets[3] = 9; }),
          "ip address 198.51.100.33 255.255.255.192 198.51.100.9\n"},
         {"IPv4 disabled", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) { ip.enabled = 0; }),
          "no ip enable\n"},
         {"IPv4 enabled otherwise", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) { ip.enabled = 2; }),
          "ip enable\n"},
         {"IPv4 order", Mode::delta, ipv4Step, [](auto &current, auto &) { current.ipv4 = someIpv4(); },
          "ip address dhcp\nip address 198.51.100.33 255.255.255.192 198.51.100.62\nip enable\n"},
         {"IPv4 reserved bytes", Mode::delta, ipv4Step, ipv4Changed([](Ipv4Interface &ip) {
              std::memset(&ip.reserved13, 0xff, sizeof ip.reserved13);
              std::memset(&ip.reserved20, 0xff, sizeof ip.reserved20);
          }),
          ""},

         {"IPv6 zero", Mode::full, ipv6Step, [](auto &, auto &) {},
          "no ipv6 enable\nno ipv6 address autoconfig\nipv6 address link-local ::/0\nipv6 address global ::/0 ::\n"
          "no ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n"},
         {"IPv6 all", Mode::full, ipv6Step, [](auto &current, auto &) { current.ipv6 = someIpv6(); },
          "ipv6 enable\nipv6 address autoconfig\nipv6 address link-local fe80::33/64\n"
          "ipv6 address global 2001:db8::21/48 2001:db8::1\n"
          "ipv6 address dhcp rapid-commit\nipv6 address dhcp force\n"},
         {"IPv6 default is not read", Mode::full, ipv6Step, [](auto &, auto &defaults) { defaults.ipv6 = someIpv6(); },
          "no ipv6 enable\nno ipv6 address autoconfig\nipv6 address link-local ::/0\nipv6 address global ::/0 ::\n"
          "no ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n"},
         {"IPv6 octets and places", Mode::full, ipv6Step,
          [](auto &current, auto &) {
              for (u8 i = 0; i < 54; ++i) (reinterpret_cast<u8 *>(&current) + 492)[i] = static_cast<u8>(0xa0 + i);
          },
          "ipv6 enable\nipv6 address autoconfig\n"
          "ipv6 address link-local a4a5:a6a7:a8a9:aaab:acad:aeaf:b0b1:b2b3/180\n"
          "ipv6 address global b5b6:b7b8:b9ba:bbbc:bdbe:bfc0:c1c2:c3c4/197 c6c7:c8c9:cacb:cccd:cecf:d0d1:d2d3:d4d5\n"
          "ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n"},
         {"IPv6 carrying IPv4 stays in IPv6 form", Mode::full, ipv6Step,
          [](auto &current, auto &) {
              current.ipv6.gateway = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, 1}};
              current.ipv6.dhcpMode = 1;
          },
          "no ipv6 enable\nno ipv6 address autoconfig\nipv6 address link-local ::/0\n"
          "ipv6 address global ::/0 ::ffff:192.0.2.1\nno ipv6 address dhcp rapid-commit\nipv6 address dhcp auto\n"},
         {"IPv6 DHCP mode 3 is off", Mode::full, ipv6Step,
          [](auto &current, auto &) {
              current.ipv6 = someIpv6();
              current.ipv6.dhcpMode = 3;
          },
          "ipv6 enable\nipv6 address autoconfig\nipv6 address link-local fe80::33/64\n"
          "ipv6 address global 2001:db8::21/48 2001:db8::1\n"
          "ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n"},
         {"IPv6 prefix length 255", Mode::full, ipv6Step,
          [](auto &current, auto &) { current.ipv6.linkLocalPrefixLength = current.ipv6.globalPrefixLength = 255; },
          "no ipv6 enable\nno ipv6 address autoconfig\nipv6 address link-local ::/255\n"
          "ipv6 address global ::/255 ::\nno ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n"},

         {"IPv6 equal", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &) {}), ""},
         {"IPv6 disabled", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.enabled = 0; }),
          "no ipv6 enable\n"},
         {"IPv6 enabled otherwise", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.enabled = 2; }),
          "ipv6 enable\n"},
         {"IPv6 autoconfiguration off", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.autoconfiguration = 0; }), "no ipv6 address autoconfig\n"},
         {"IPv6 autoconfiguration otherwise", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.autoconfiguration = 2; }), "ipv6 address autoconfig\n"},
         {"IPv6 link-local address", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.linkLocal.octets[15] = 0x34; }),
          "ipv6 address link-local fe80::34/64\n"},
         {"IPv6 link-local prefix", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.linkLocalPrefixLength = 10; }),
          "ipv6 address link-local fe80::33/10\n"},
         {"IPv6 global address", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.global.octets[0] = 0x30; }),
          "ipv6 address global 3001:db8::21/48 2001:db8::1\n"},
         {"IPv6 global prefix 0", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.globalPrefixLength = 0; }),
          "ipv6 address global 2001:db8::21/0 2001:db8::1\n"},
         {"IPv6 gateway", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.gateway = {}; }),
          "ipv6 address global 2001:db8::21/48 ::\n"},
         {"IPv6 rapid commit off", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.rapidCommit = 0; }),
          "no ipv6 address dhcp rapid-commit\n"},
         {"IPv6 rapid commit otherwise", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { ip.rapidCommit = 255; }), "ipv6 address dhcp rapid-commit\n"},
         {"IPv6 DHCP auto", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.dhcpMode = 1; }),
          "ipv6 address dhcp auto\n"},
         {"IPv6 DHCP force", Mode::delta, ipv6Step, [](auto &current, auto &) { current.ipv6.dhcpMode = 2; },
          "ipv6 address dhcp force\n"},
         {"IPv6 DHCP off", Mode::delta, ipv6Step, ipv6Changed([](Ipv6Interface &ip) { ip.dhcpMode = 0; }),
          "no ipv6 address dhcp\n"},
         {"IPv6 DHCP off otherwise", Mode::delta, ipv6Step, [](auto &current, auto &) { current.ipv6.dhcpMode = 3; },
          "no ipv6 address dhcp\n"},
         {"IPv6 order", Mode::delta, ipv6Step, [](auto &current, auto &) { current.ipv6 = someIpv6(); },
          "ipv6 enable\nipv6 address autoconfig\nipv6 address link-local fe80::33/64\n"
          "ipv6 address global 2001:db8::21/48 2001:db8::1\n"
          "ipv6 address dhcp rapid-commit\nipv6 address dhcp force\n"},
         {"IPv6 reserved bytes", Mode::delta, ipv6Step,
          ipv6Changed([](Ipv6Interface &ip) { std::memset(&ip.reserved54, 0xff, sizeof ip.reserved54); }), ""},
     }));

TEST(IpAddressing, Golden) {
    EXPECT_EQ(golden("ip_full.txt"), ipText(Mode::full));
    EXPECT_EQ(golden("ip_delta.txt"), ipText(Mode::delta));
}
