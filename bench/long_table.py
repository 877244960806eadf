#!/usr/bin/env python3
"""Writes a collection whose process list has N rows of 9 columns: long_table.py N > FILE

The names are as long as messages of a log, all different. The same N gives the same bytes."""
import random
import sys

SCHEMA = """
class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };
class ZANSG_OperatingSystem {
   [Key] string Name;
   [ValueMap { "36" }, Values { "LINUX" }] uint16 OSType;
};
class ZANSG_Process {
   [Key, DisplayName ("PID")] string Handle;
   [DisplayName ("Name")] string Name;
   [DisplayName ("User")] string User;
   [DisplayName ("State"), ValueMap { "2", "3", "4" }, Values { "Ready", "Running", "Blocked" }]
   uint16 ExecutionState;
   uint32 Priority;
   uint64 KernelModeTime;
   uint64 UserModeTime;
   uint64 WorkingSetSize;
   datetime CreationDate;
};
instance of ZANSG_ComputerSystem { Name = "bench"; SerialNumber = "SN0001"; };
instance of ZANSG_OperatingSystem { Name = "Linux"; OSType = 36; };
"""

PROCESS = """instance of ZANSG_Process {{
   Handle = "{pid}"; Name = "{name}"; User = "{user}"; ExecutionState = {state}; Priority = {priority};
   KernelModeTime = {kernel}; UserModeTime = {user_time}; WorkingSetSize = {memory};
   CreationDate = "202607{day:02}{hour:02}{minute:02}{second:02}.000000+000";
}};
"""

WORDS = ("accepted closed connection device disk error failed fan from interface kernel link memory node opened "
         "password port power request retry sensor service session started stopped temperature timeout user").split()
USERS = ("root", "daemon", "web", "db", "backup")


def main(rows):
    pick = random.Random(1)
    print(SCHEMA)
    for pid in range(1, rows + 1):
        words = " ".join(pick.choice(WORDS) for _ in range(pick.randint(8, 16)))
        print(PROCESS.format(
            pid=pid, name=f"{pick.choice(WORDS)} {pick.randint(1, 99)}: {words} {pid * 7919 % 1000003:x}",
            user=pick.choice(USERS), state=pick.choice((2, 3, 4)), priority=pick.randint(0, 39),
            kernel=pick.randint(0, 10**8), user_time=pick.randint(0, 10**6), memory=pick.randint(0, 10**7),
            day=pick.randint(1, 31), hour=pick.randint(0, 23), minute=pick.randint(0, 59), second=pick.randint(0, 59)),
            end="")


if __name__ == "__main__":
    main(int(sys.argv[1]))
