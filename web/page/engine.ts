// The engine as the page sees it: calls that are answered later, and an end of them all at once.
import type { Quillon } from "../engine";
import type { CallName, FromEngine, ToEngine } from "./messages";

/** Why a call has no answer: the user wanted no more of it. */
export class Cancelled extends Error {}

export type Progress = (isWriting: boolean, percent: number) => void;

/** What convert() of the engine gets besides, comes by `onProgress` here. */
type Arguments<K extends CallName> = K extends "convert"
  ? [Parameters<Quillon["convert"]>[0], boolean]
  : Parameters<Quillon[K]>;

interface Waiting {
  resolve: (value: unknown) => void;
  reject: (reason: Error) => void;
}

/** Files that were loaded once, so that another worker needs no request. */
export interface Program {
  worker: string;
  module: WebAssembly.Module;
}

export class Engine {
  /** Counts workers; what was opened in an earlier one is gone. */
  generation = 0;
  onProgress: Progress = () => {};
  private worker!: Worker;
  private waiting = new Map<number, Waiting>();
  private lastId = 0;

  constructor(private readonly program: Program) {
    this.start();
  }

  get isBusy(): boolean {
    return this.waiting.size > 0;
  }

  call<K extends CallName>(name: K, ...args: Arguments<K>): Promise<ReturnType<Quillon[K]>> {
    const id = ++this.lastId;
    this.send({ id, name, args });
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { resolve: resolve as Waiting["resolve"], reject });
    });
  }

  /** Ends what is being done. */
  cancel(): void {
    this.worker.terminate();
    this.fail(new Cancelled());
    this.start();
  }

  private start(): void {
    this.generation += 1;
    this.worker = new Worker(this.program.worker, { type: "module" });
    this.worker.onmessage = ({ data }: MessageEvent<FromEngine>) => this.take(data);
    this.worker.onerror = (event) => this.fail(new Error(event.message));
    this.send({ module: this.program.module });
  }

  private send(message: ToEngine): void {
    this.worker.postMessage(message);
  }

  private take(answer: FromEngine): void {
    if ("percent" in answer) {
      this.onProgress(answer.isWriting, answer.percent);
      return;
    }
    const waiting = this.waiting.get(answer.id);
    this.waiting.delete(answer.id);
    if ("error" in answer) waiting?.reject(new Error(answer.error));
    else waiting?.resolve(answer.value);
  }

  private fail(reason: Error): void {
    const all = [...this.waiting.values()];
    this.waiting.clear();
    for (const { reject } of all) reject(reason);
  }
}
