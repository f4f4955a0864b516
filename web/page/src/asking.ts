import type { Answer, Name, Requests } from "./protocol.js";
import { texts } from "./texts.js";
import Worker from "./worker.js?worker&inline";

interface Waiting {
  resolve(value: never): void;
  reject(error: Error): void;
  readonly progress: ((part: number) => void) | undefined;
}

export interface Asking {
  <N extends Name>(name: N, what: Requests[N][0], progress?: (part: number) => void): Promise<Requests[N][1]>;
}

/** A worker, as a function that asks it. */
export function asking(module: ArrayBuffer): { ask: Asking; end(): void } {
  const worker = new Worker();
  const waiting = new Map<number, Waiting>();
  let next = 0;
  worker.addEventListener("message", (event: MessageEvent<Answer>) => {
    const answer = event.data;
    const one = waiting.get(answer.id);
    if ("done" in answer) return one?.progress?.(answer.done);
    waiting.delete(answer.id);
    if ("error" in answer) one?.reject(new Error(answer.error));
    else one?.resolve(answer.value as never);
  });
  const fail = (why: string): void => {
    for (const one of waiting.values()) one.reject(new Error(why));
    waiting.clear();
  };
  // A worker that cannot start, or runs out of memory, answers nothing more.
  worker.addEventListener("error", (event) => fail(`${texts.failed}: ${event.message}`));
  const post = <N extends Name>(name: N, what: Requests[N][0], progress?: (part: number) => void): Promise<Requests[N][1]> =>
    new Promise((resolve, reject) => {
      waiting.set(++next, { resolve, reject, progress });
      worker.postMessage({ id: next, name, what });
    });
  const started = post("start", { module });
  started.catch(() => undefined);  // whatever is asked says so
  return {
    ask: async (name, what, progress) => {
      await started;
      return post(name, what, progress);
    },
    end() {
      worker.terminate();
      fail(texts.cancelled);
    },
  };
}
