// What the pages can do beyond being read. Each part works on what it finds, on every page kind.

import { startTheme } from "./theme";

startTheme();
