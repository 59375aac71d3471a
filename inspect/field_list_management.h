/// The fields of what manages the switch: its clock, addresses, users, communities, servers and time ranges.
#pragma once

#include "inspect/field_description.h"
#include "inspect/field_words.h"

namespace inspect {

// clang-format off
FIELDS_OF(TimeConfig, "") = {
    F(ntpEnabled).flag(),
    F(syncInterval),
    F(server1),
    F(reserved12),
    F(server2),
    F(reserved77),
    F(timeZone),
    F(reserved176),
    F(daylightSaving).codes(daylightSavings, "by date"),
    F(offset),
    F(server1Ipv6),
    F(reserved232),
    F(server2Ipv6),
    F(reserved297),
};

FIELDS_OF(Ipv4Interface, "") = {
    F(enabled).flag(),
    F(address),
    F(mask),
    F(gateway),
    F(reserved13),
    F(dhcpMode).codes(offOn),
    F(reserved20),
};

FIELDS_OF(Ipv6Interface, "") = {
    F(enabled).flag(),
    F(autoconfiguration).flag(),
    F(dhcpMode).codes(dhcpv6Modes, "off"),
    F(rapidCommit).flag(),
    F(linkLocal),
    F(linkLocalPrefixLength),
    F(global),
    F(globalPrefixLength),
    F(gateway),
    F(reserved54),
};

FIELDS_OF(CompanyInfo, "") = {
    F(companyName),
    F(systemContact),
    F(systemName),
    F(systemLocation),
    F(hostName),
    F(dhcpVendorId),
};

FIELDS_OF(ServiceConfig, "") = {
    F(reserved0),
    F(remoteLogin).codes(remoteLogins),
    F(reserved8),
    F(snmpEnabled).flag(),
    F(webEnabled).flag(),
    F(reserved11),
};

FIELDS_OF(ConsoleConfig, "") = {
    F(reserved0),
    F(telnetPort),
    F(reserved8),
    F(timeout).unit("minutes where timeoutInMinutes is on"),
    F(reserved16),
    F(timeoutInMinutes).flag(),
    F(webTimeout),
    F(reserved52),
};

FIELDS_OF(User, "inUse") = {
    F(active).flag(),
    F(inUse).flag(),
    F(reserved2),
    F(name),
    F(password),
    F(passwordMd5),
    F(description),
    F(level).codes(userLevels),
    F(reserved125),
};

FIELDS_OF(Community, "inUse") = {
    F(inUse).flag(),
    F(active).flag(),
    F(name),
    F(description),
    F(level).codes(communityLevels),
    F(reserved84),
};

FIELDS_OF(TrapDestination, "inUse") = {
    F(inUse).flag(),
    F(active).flag(),
    F(community),
    F(address),
    F(addressIpv6),
    F(reserved46),
};

FIELDS_OF(TrapConfig, "") = {
    F(coldStart).flag(),
    F(warmStart).flag(),
    F(authFail).flag(),
    F(reserved3),
    F(portLink).note("bit 0 alone decides"),
    F(caseFan).flag(),
    F(reserved25),
    F(batteryMode).flag(),
    F(reserved28),
    F(cpuLoad).flag(),
    F(reserved31),
    F(macLimit).flag(),
    F(stormControl).flag(),
    F(autoBackup).flag(),
    F(reserved39),
};

FIELDS_OF(LogConfig, "") = {
    F(enabled).flag(),
    F(reserved1),
    F(server).from(1),
    F(reserved14),
    F(serverIpv6).from(1),
    F(reserved68),
};

FIELDS_OF(AuthenticationClient, "") = {
    F(enabled).flag(),
    F(secret),
    F(port),
    F(retryTime),
    F(server).from(1),
    F(serverIpv6).from(1),
    F(reserved81),
};

FIELDS_OF(LldpConfig, "") = {
    F(ports).ports(),
    F(holdTime),
    F(interval),
    F(packets),
    F(reserved10),
    F(portDescription).flag(),
    F(systemName).flag(),
    F(systemDescription).flag(),
    F(capability).flag(),
    F(managementAddress).flag(),
    F(reserved17),
};

FIELDS_OF(StatisticsPolling, "") = {
    F(interval),
    F(ports),
};

FIELDS_OF(TimeRange::Periodic, "") = {
    F(start),
    F(end),
};

FIELDS_OF(TimeRange::PeriodicList, "") = {
    F(weekdays).bits(weekdays),
    F(start),
    F(end),
};

FIELDS_OF(TimeRange, "name") = {
    F(absoluteStart),
    F(absoluteEnd),
    F(periodic).from(1),
    F(list).from(1),
    F(name),
};

FIELDS_OF(BackupConfig, "") = {
    F(enabled).flag(),
    F(time),
    F(reserved2),
    F(protocol).codes(backupProtocols, "TFTP"),
    F(server),
    F(serverIpv6),
    F(serverIsIpv6).flag(),
    F(user),
    F(password),
    F(path),
};
// clang-format on

} // namespace inspect
