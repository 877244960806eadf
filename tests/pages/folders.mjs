// The folders that the tests look at: the examples, and a machine made up of hostile texts and long tables.

import { execFileSync } from "node:child_process";
import { rmSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const examples = join(dirname(fileURLToPath(import.meta.url)), "../../examples");

export const kLongRows = 5000;
/** A text that no other row has. */
export const kNeedle = "ZAN7F3A";
const kHostile = `</script><script>document.title='x'</script><img src=x onerror=alert(1)> & "quotes" 'single' \u2028 =1+1`;

function quote(text) {
  return `"${text.replaceAll("\\", "\\\\").replaceAll('"', '\\"')}"`;
}

function makeProcess(pid, name) {
  const state = 2 + (pid % 3);
  return `instance of ZANSG_Process { Handle = "${pid}"; Name = ${quote(name)}; User = "user${pid % 7}";
  ExecutionState = ${state}; WorkingSetSize = ${(pid * 7919) % 100003}; };\n`;
}

/** A Linux machine with a process list of kLongRows rows. */
export function makeLongCollection() {
  let text = `
class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };
class ZANSG_OperatingSystem { [Key] string Name; [ValueMap { "36" }, Values { "LINUX" }] uint16 OSType; };
class ZANSG_Process { [Key, DisplayName ("PID")] string Handle; [DisplayName ("Name")] string Name; string User;
  [ValueMap { "2", "3", "4" }, Values { "Ready", "Running", "Blocked" }] uint16 ExecutionState; uint64 WorkingSetSize; };
instance of ZANSG_ComputerSystem { Name = ${quote(kHostile)}; SerialNumber = "VM-0001"; };
instance of ZANSG_OperatingSystem { Name = "Linux"; OSType = 36; };
`;
  for (let pid = 1; pid <= kLongRows; ++pid) {
    const worker = (pid * 31) % kLongRows;
    const other = `Zoë-0${pid % 13} ${"aÄb/".repeat(pid % 4)}eth${pid % 100}.${pid % 3 ? pid : `00${pid}`}`;
    const name = pid === 4321 ? `brandt ${kNeedle}` : pid === 3 ? kHostile : worker < 4000 ? `worker ${worker}` : other;
    text += makeProcess(pid, name);
  }
  return text;
}

/** Reports of more machines than one page holds, the last of them hostile. */
function makeFleet(tool, folder, manifest) {
  const machine = JSON.parse(readFileSync(manifest, "utf8"));
  for (let number = 0; number < 260; ++number) {
    const place = join(folder, `node${number}`);
    mkdirSync(place, { recursive: true });
    const isOdd = number === 259;
    const facts = { ...machine.machine, name: isOdd ? kHostile : `node${number}`, product: isOdd ? "x".repeat(5000) : "Zander R1" };
    const firmware = [{ name: "BIOS", version: number === 17 ? "1.1" : "1.2" }];
    const verdict = number % 50 === 0 ? "failed" : "ok";
    writeFileSync(join(place, "manifest.json"), JSON.stringify({ ...machine, machine: facts, firmware, verdict }));
    writeFileSync(join(place, "index.html"), "<!DOCTYPE html><html lang=en><title>A machine</title></html>");
  }
  execFileSync(tool, ["fleet-index", folder, "--quiet"], { stdio: "inherit" });
}

export function makeFolders(tool, folder) {
  rmSync(folder, { recursive: true, force: true });
  mkdirSync(folder, { recursive: true });
  const long = join(folder, "long.mof");
  writeFileSync(long, makeLongCollection());
  const run = (command, name, ...inputs) =>
    execFileSync(tool, [command, ...inputs, "-o", join(folder, name), "--quiet"], {
      stdio: "inherit",
      env: { ...process.env, SOURCE_DATE_EPOCH: "0" },
    });
  run("report", "linux", join(examples, "debian-host"));
  run("report", "windows", join(examples, "windows-server"));
  run("report", "long", long);
  run("hypervisor", "hypervisor", join(examples, "esxi-host"));
  const [before, after] = ["before", "after"].map((name) => join(examples, "compare/one-server-two-times", `${name}.mof`));
  run("compare", "compare", before, after);
  makeFleet(tool, join(folder, "fleet"), join(folder, "windows", "manifest.json"));
}
