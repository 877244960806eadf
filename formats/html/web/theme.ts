// The theme: as the system has it, light or dark. Kept in the browser, for all pages of a folder.

const kKey = "qsxreport-theme";
const kThemes = ["light", "dark"];

/** The stored theme. Missing: empty, also where the browser keeps nothing for files. */
function readTheme(): string {
  try {
    const theme = localStorage.getItem(kKey) ?? "";
    return kThemes.includes(theme) ? theme : "";
  } catch {
    return "";
  }
}

function keepTheme(theme: string): void {
  try {
    if (theme) localStorage.setItem(kKey, theme);
    else localStorage.removeItem(kKey);
  } catch {
    // The theme holds for this page then.
  }
}

function showTheme(theme: string): void {
  if (theme) document.documentElement.dataset.theme = theme;
  else delete document.documentElement.dataset.theme;
}

/** Right at the start of the page, so that it does not flash in the other theme. */
export function startTheme(): void {
  showTheme(readTheme());
  document.addEventListener("DOMContentLoaded", () => {
    const choice = document.querySelector<HTMLSelectElement>("#theme");
    if (!choice) return;
    choice.value = readTheme();
    choice.addEventListener("change", () => {
      keepTheme(choice.value);
      showTheme(choice.value);
    });
  });
  window.addEventListener("storage", (event) => {
    if (event.key === kKey) showTheme(readTheme());
  });
}
