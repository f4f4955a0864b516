import { defineConfig } from "vitest/config";
export default defineConfig({ test: { include: ["test/figures.ts"], testTimeout: 1200000 } });
